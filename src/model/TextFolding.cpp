#include "model/TextFolding.h"

#include <QChar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

TextFolding::TextFolding(const QLocale &locale)
    : m_dotlessI(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani)
{
}

QString TextFolding::prepared(const QString &text) const
{
    QString composed = text.normalized(QString::NormalizationForm_C);
    if (m_dotlessI) {
        // Before any decomposition: the dot of İ tells the letters apart, it is no diacritic.
        composed.replace(u'I', u'\u0131');
        composed.replace(u'\u0130', u'i');
    }
    // QString folds letter by letter; these letters fold to two.
    composed.replace(u'\u0130', u"i\u0307"_s);
    composed.replace(u'\u00DF', u"ss"_s);
    composed.replace(u'\u1E9E', u"ss"_s);
    return composed;
}

QString TextFolding::withoutCase(const QString &text) const
{
    if (!m_dotlessI && isAscii(text))
        return text.toCaseFolded(); // the usual query: nothing else can apply
    // Folding can yield decomposed letters (ǰ becomes j and a caron), so compose once more.
    return prepared(text).toCaseFolded().normalized(QString::NormalizationForm_C);
}

QString TextFolding::withoutCaseAndDiacritics(const QString &text) const
{
    // Folding first: what it decomposes loses its marks too.
    QString folded = prepared(text).toCaseFolded().normalized(QString::NormalizationForm_D);
    qsizetype end = 0;
    for (qsizetype i = 0; i < folded.size(); ++i) {
        char32_t codePoint = folded.at(i).unicode();
        const bool pair = folded.at(i).isHighSurrogate() && i + 1 < folded.size() &&
                          folded.at(i + 1).isLowSurrogate();
        if (pair)
            codePoint = QChar::surrogateToUcs4(folded.at(i), folded.at(i + 1));
        // Marks that attach to a letter have a combining class; the vowel signs of other scripts,
        // which tell words apart, have none.
        if (QChar::combiningClass(codePoint) == 0) {
            folded[end++] = folded.at(i);
            if (pair)
                folded[end++] = folded.at(i + 1);
        }
        if (pair)
            ++i;
    }
    folded.truncate(end);
    return folded;
}

} // namespace hmatnik
