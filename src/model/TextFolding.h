#pragma once

#include <QLocale>
#include <QString>

namespace hmatnik {

/// Brings texts into a form in which equal code points mean equal texts for a person of some
/// locale. Canonically equivalent texts (é as one code point or as two) always fold alike.
class TextFolding
{
public:
    /// @param locale In Turkish and Azerbaijani, I pairs with ı and İ with i; elsewhere letters
    ///     pair as Unicode's case folding says.
    explicit TextFolding(const QLocale &locale);

    /// Case is ignored, diacritics count. The result is in normalisation form C.
    QString withoutCase(const QString &text) const;

    /// Neither case nor diacritics count.
    QString withoutCaseAndDiacritics(const QString &text) const;

private:
    /// The text in which Unicode's case folding does what the locale asks.
    QString prepared(const QString &text) const;

    bool m_dotlessI;
};

} // namespace hmatnik
