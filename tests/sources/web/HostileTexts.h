// Texts that try to get out of the place that they are written into.
#pragma once

#include <QStringList>

/// Ways out of string literals, scripts and pages, and a thousand random texts of all kinds of
/// characters. The same ones each time.
QStringList hostileTexts();
/// How many of them, at the beginning, are not random.
constexpr int knownHostileTextCount = 26;
