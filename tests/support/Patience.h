// How long tests wait for what is to happen.
#pragma once

#include "platform/Delay.h"

#include <QTest>

/// Milliseconds. Far more than anything takes: a test that passes does not wait for it to be over,
/// and on a machine that is busy with other things five seconds, which Qt allows, are too few.
inline constexpr int patience = 20000;

#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(expression) QTRY_VERIFY_WITH_TIMEOUT(expression, patience)
#define QTRY_VERIFY2(expression, message) QTRY_VERIFY2_WITH_TIMEOUT(expression, message, patience)
#define QTRY_COMPARE(expression, expected) QTRY_COMPARE_WITH_TIMEOUT(expression, expected, patience)

/// Waits until a delay of this length that has begun by now is long over, to see that it did
/// nothing.
inline void outwait(std::chrono::milliseconds length)
{
    bool isOver = false;
    zeph::Delay delay;
    delay.start(2 * length, [&isOver] { isOver = true; });
    QVERIFY(QTest::qWaitFor([&isOver] { return isOver; }, patience));
}
