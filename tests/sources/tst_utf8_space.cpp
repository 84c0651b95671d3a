// White space and line breaks in UTF-8.
#include "sources/Utf8Space.h"

#include <QTest>

using namespace zeph;

namespace {

bool isSurrogate(char32_t character)
{
    return character >= 0xd800 && character <= 0xdfff;
}

// QString::fromUcs4() drops byte-order marks.
QString textOf(char32_t character)
{
    const auto units = QChar::fromUcs4(character);
    return QStringView(units).toString();
}

QByteArrayList linesOf(const QByteArray &text)
{
    QByteArrayList lines;
    for (LineSplitter splitter(text); splitter.next();)
        lines += splitter.line().toByteArray();
    return lines;
}

} // namespace

class Utf8SpaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void trimsExactlyTheWhiteSpace();
    void trimsBothEnds();
    void splitsAtExactlyTheNewlines();
    void splitsWhereverTheNewlineStands();
    void givesEmptyLinesToo();
    void keepsByteOrderMarks();
};

void Utf8SpaceTest::trimsExactlyTheWhiteSpace()
{
    for (char32_t character = 0; character <= QChar::LastValidCodePoint; ++character) {
        if (isSurrogate(character))
            continue;
        const QByteArray utf8 = textOf(character).toUtf8();
        const bool isTrimmed = QChar::isSpace(character) || character == QChar::ByteOrderMark;
        // Both at the ends and by itself.
        QCOMPARE(trimmedUtf8(utf8), isTrimmed ? QByteArray() : utf8);
        QCOMPARE(trimmedUtf8(utf8 + "a b" + utf8), isTrimmed ? "a b" : utf8 + "a b" + utf8);
    }
}

void Utf8SpaceTest::trimsBothEnds()
{
    QCOMPARE(trimmedUtf8(" \t\u3000a\u00a0b\u2028 \r"), "a\u00a0b");
    QCOMPARE(trimmedUtf8(" \u2003\u0085 "), "");
    QCOMPARE(trimmedUtf8(QByteArrayView()), "");
}

void Utf8SpaceTest::splitsAtExactlyTheNewlines()
{
    const QString newlines = QStringLiteral("\n\v\f\r\u0085\u2028\u2029");
    for (char32_t character = 0; character <= QChar::LastValidCodePoint; ++character) {
        if (isSurrogate(character))
            continue;
        const QString text = textOf(character);
        const QByteArray utf8 = text.toUtf8();
        const QByteArrayList expected = newlines.contains(text)
            ? QByteArrayList { "a", "b" }
            : QByteArrayList { 'a' + utf8 + 'b' };
        QCOMPARE(linesOf('a' + utf8 + 'b'), expected);
    }
}

void Utf8SpaceTest::splitsWhereverTheNewlineStands()
{
    for (const char *newline : { "\n", "\r", "\u0085", "\u2028" }) {
        for (qsizetype before = 0; before < 100; ++before) {
            for (const qsizetype after : { 0, 1, 2, 31, 32, 33, 64 }) {
                const QByteArray first(before, 'a');
                const QByteArray second(after, 'b');
                QCOMPARE(linesOf(first + newline + second), QByteArrayList({ first, second }));
            }
        }
    }
}

void Utf8SpaceTest::givesEmptyLinesToo()
{
    QCOMPARE(linesOf("a\r\nb\n"), QByteArrayList({ "a", "", "b", "" }));
    QCOMPARE(linesOf("a"), QByteArrayList({ "a" }));
    QCOMPARE(linesOf(""), QByteArrayList({ "" }));
    QCOMPARE(linesOf(QByteArray("\0\n\0", 3)),
        QByteArrayList({ QByteArray(1, '\0'), QByteArray(1, '\0') }));
    // The starts of what might have become newline characters.
    QCOMPARE(linesOf("a\u0080\u2027\u202a"), QByteArrayList({ "a\u0080\u2027\u202a" }));
}

void Utf8SpaceTest::keepsByteOrderMarks()
{
    QCOMPARE(textFromUtf8("\ufeffa\ufeff"), QStringLiteral("\ufeffa\ufeff"));
    QCOMPARE(textFromUtf8("\u0416\U0001f4fa"), QStringLiteral("\u0416\U0001f4fa"));
}

QTEST_GUILESS_MAIN(Utf8SpaceTest)
#include "tst_utf8_space.moc"
