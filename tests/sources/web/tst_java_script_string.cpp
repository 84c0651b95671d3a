// Texts as parts of scripts.
#include "HostileTexts.h"
#include "sources/web/JavaScriptString.h"

#include <QJSEngine>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <algorithm>

using namespace zeph;

class JavaScriptStringTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plainTextsAreAsTheyAre()
    {
        QCOMPARE(
            javaScriptString(QStringLiteral("dQw4w9WgXcQ")), QStringLiteral("\"dQw4w9WgXcQ\""));
        QCOMPARE(javaScriptString(QString()), QStringLiteral("\"\""));
    }

    void noTextIsNull() { QCOMPARE(javaScriptString({}), QStringLiteral("null")); }

    void halfACharacterIsNull()
    {
        QCOMPARE(javaScriptString(QString(QChar(0xd800))), QStringLiteral("null"));
        QCOMPARE(javaScriptString(QStringLiteral("a") + QChar(0xdc00)), QStringLiteral("null"));
    }

    void quotesAndBackslashesAreEscaped()
    {
        QCOMPARE(
            javaScriptString(QStringLiteral("a\"b\\c")), QStringLiteral("\"a\\u0022b\\u005cc\""));
    }

    void hostileTextsStayTexts()
    {
        QJSEngine engine;
        for (const QString &text : hostileTexts()) {
            const QString literal = javaScriptString(text);
            QCOMPARE(engine.evaluate(literal).toString(), text);
            const auto document =
                QJsonDocument::fromJson('[' + literal.toUtf8() + ']').array().at(0);
            QCOMPARE(document.toString(), text);
            QVERIFY(std::all_of(literal.begin(), literal.end(), [](QChar character) {
                return character >= u' ' && character < u'\x7f' && character != u'<';
            }));
        }
    }
};

QTEST_GUILESS_MAIN(JavaScriptStringTest)
#include "tst_java_script_string.moc"
