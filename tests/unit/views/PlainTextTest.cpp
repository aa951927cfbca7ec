#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

// Titles and details come from other programs' menus. A text that guesses its format would read
// markup in them and could even fetch pictures.
TEST(PlainTextTest, noViewReadsTextAsMarkup)
{
    static const QRegularExpression text(u"^\\s*(?:[A-Za-z]+: )?Text(?:Edit)? \\{"_s);
    static const QRegularExpression rich(u"(?:Rich|Styled|Markdown|Auto)Text"_s);
    int texts = 0;
    const QDir views(QStringLiteral(HMATNIK_SOURCE_DIR "/src/views"));
    for (const QString &file : views.entryList({u"*.qml"_s})) {
        QFile source(views.filePath(file));
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(source.readAll()).split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) {
            EXPECT_FALSE(rich.match(lines[i]).hasMatch()) << qPrintable(file) << ":" << i + 1;
            if (!text.match(lines[i]).hasMatch())
                continue;
            ++texts;
            const QString body = lines.mid(i + 1, 10).join(u'\n');
            EXPECT_TRUE(body.contains(u"textFormat: Text.PlainText"_s))
                << qPrintable(file) << ":" << i + 1;
        }
    }
    EXPECT_GT(texts, 0);
}

} // namespace hmatnik::test
