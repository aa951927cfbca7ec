#include "platform/linux/PropertyListText.h"

#include <optional>

namespace hmatnik::platform {

namespace {

constexpr char16_t escapeMark = u'\u241B';
constexpr qsizetype digitCount = 4;

/// Whether the code unit at the position needs to be escaped; the mark itself not considered.
bool isForbidden(QStringView text, qsizetype position)
{
    const QChar unit = text[position];
    if (unit.unicode() < 0x20)
        return unit != u'\t' && unit != u'\n';
    if (unit.isHighSurrogate())
        return position + 1 >= text.size() || !text[position + 1].isLowSurrogate();
    if (unit.isLowSurrogate())
        return position == 0 || !text[position - 1].isHighSurrogate();
    return unit.unicode() >= 0xFFFE;
}

std::optional<ushort> hexDigit(QChar digit)
{
    if (digit >= u'0' && digit <= u'9')
        return static_cast<ushort>(digit.unicode() - u'0');
    if (digit >= u'A' && digit <= u'F')
        return static_cast<ushort>(digit.unicode() - u'A' + 10);
    return std::nullopt;
}

/// The code unit that the sequence at the position stands for; none if no sequence starts there.
/// Only what escaping produces is taken for a sequence, so that other texts stay as they are.
std::optional<QChar> escapedUnit(QStringView text, qsizetype position)
{
    if (text[position] != escapeMark || text.size() - position <= digitCount)
        return std::nullopt;
    ushort code = 0;
    for (qsizetype i = 1; i <= digitCount; ++i) {
        const auto digit = hexDigit(text[position + i]);
        if (!digit)
            return std::nullopt;
        code = static_cast<ushort>((code << 4) | *digit);
    }
    const QChar unit(code);
    const bool isProduced = unit == escapeMark || unit.isSurrogate() || code >= 0xFFFE ||
                            (code < 0x20 && unit != u'\t' && unit != u'\n');
    return isProduced ? std::optional(unit) : std::nullopt;
}

} // namespace

QString escapedForXml(const QString &text)
{
    QString result;
    qsizetype copied = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isSequence = text[i] == escapeMark && escapedUnit(text, i);
        if (!isSequence && !isForbidden(text, i))
            continue;
        result += QStringView(text).mid(copied, i - copied);
        result += escapeMark;
        result += QString::number(text[i].unicode(), 16).toUpper().rightJustified(digitCount, u'0');
        copied = i + 1;
    }
    if (copied == 0)
        return text;
    result += QStringView(text).mid(copied);
    return result;
}

QString unescapedFromXml(const QString &text)
{
    if (!text.contains(escapeMark))
        return text;
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (const auto unit = escapedUnit(text, i)) {
            result += *unit;
            i += digitCount;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace hmatnik::platform
