#include "platform/linux/PropertyList.h"

#include "platform/linux/PropertyListText.h"

#include <QDateTime>
#include <QStringDecoder>
#include <QStringList>
#include <QXmlStreamReader>

#include <plist/plist.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumDepth = 64;
constexpr int maximumEntityExpansion = 1024;

/// Makes the thread use a full stop in numbers while the library reads or writes them: it uses
/// the C library's conversions, which follow the person's locale.
class NeutralNumbers
{
public:
    NeutralNumbers()
        : m_previous(uselocale(neutral()))
    {
    }
    ~NeutralNumbers() { uselocale(m_previous); }
    Q_DISABLE_COPY_MOVE(NeutralNumbers)

private:
    /// Made once: where LOCPATH is set, the C library loses some memory with each one it makes.
    /// Null, which changes nothing, if it can't be made.
    static locale_t neutral()
    {
        static locale_t const made = newlocale(LC_NUMERIC_MASK, "C", duplocale(LC_GLOBAL_LOCALE));
        return made;
    }

    locale_t m_previous;
};

/// Checks a property list more strictly than the library does, which takes a list without its
/// closing tag, text behind it, numbers that are none and data that is not Base64.
class Validator
{
public:
    explicit Validator(const QByteArray &xml)
        : m_reader(xml)
    {
        m_reader.setEntityExpansionLimit(maximumEntityExpansion);
    }

    bool isDictionary()
    {
        if (!toNextElement() || m_reader.name() != u"plist")
            return false;
        if (!toNextElement() || m_reader.name() != u"dict" || !dictionary(1))
            return false;
        if (toNextElement()) // nothing else may stand in the list
            return false;
        while (!m_reader.atEnd())
            m_reader.readNext();
        return !m_reader.hasError();
    }

private:
    /// Goes to the next child element; false at the end of the parent or if anything but white
    /// space and comments comes before.
    bool toNextElement()
    {
        while (!m_reader.atEnd()) {
            switch (m_reader.readNext()) {
            case QXmlStreamReader::StartElement:
                return true;
            case QXmlStreamReader::EndElement:
            case QXmlStreamReader::Invalid:
                return false;
            case QXmlStreamReader::Characters:
                if (!m_reader.isWhitespace())
                    m_reader.raiseError();
                break;
            case QXmlStreamReader::StartDocument:
                if (!isUtf8(m_reader.documentEncoding()))
                    m_reader.raiseError();
                break;
            case QXmlStreamReader::DTD:
                // A list declares no entities of its own; the library would not know them.
                if (!m_reader.entityDeclarations().isEmpty())
                    m_reader.raiseError();
                break;
            case QXmlStreamReader::EntityReference:
                m_reader.raiseError();
                break;
            default:
                break;
            }
        }
        return false;
    }

    /// The library takes the bytes as they are, whatever the document declares.
    static bool isUtf8(QStringView encoding)
    {
        return encoding.isEmpty() || encoding.compare(u"UTF-8", Qt::CaseInsensitive) == 0;
    }

    bool dictionary(int depth)
    {
        if (depth > maximumDepth)
            return false;
        while (toNextElement()) {
            if (m_reader.name() != u"key")
                return false;
            m_reader.readElementText();
            if (m_reader.hasError() || !toNextElement() || !value(depth))
                return false;
        }
        return !m_reader.hasError();
    }

    bool array(int depth)
    {
        if (depth > maximumDepth)
            return false;
        while (toNextElement()) {
            if (!value(depth))
                return false;
        }
        return !m_reader.hasError();
    }

    bool value(int depth)
    {
        const QString name = m_reader.name().toString();
        if (name == u"dict")
            return dictionary(depth + 1);
        if (name == u"array")
            return array(depth + 1);
        const QString text = m_reader.readElementText();
        return !m_reader.hasError() && isScalar(name, text);
    }

    static bool isScalar(const QString &name, const QString &text)
    {
        if (name == u"string")
            return true;
        if (name == u"true" || name == u"false")
            return text.trimmed().isEmpty();
        if (name == u"integer")
            return isInteger(text.trimmed());
        if (name == u"real")
            return isReal(text.trimmed());
        if (name == u"data")
            return isBase64(text);
        if (name == u"date")
            return QDateTime::fromString(text.trimmed(), Qt::ISODate).isValid();
        return false;
    }

    static bool isInteger(const QString &text)
    {
        bool isSigned = false;
        bool isUnsigned = false;
        // Base 0 takes the hexadecimal form too, but it takes leading zeros for octal.
        const int base = text.contains(u'x', Qt::CaseInsensitive) ? 16 : 10;
        text.toLongLong(&isSigned, base);
        text.toULongLong(&isUnsigned, base);
        return isSigned || isUnsigned;
    }

    static bool isReal(const QString &text)
    {
        static const QStringList notFinite{u"nan"_s, u"inf"_s, u"infinity"_s};
        QString unsignedText = text.toLower();
        if (unsignedText.startsWith(u'+') || unsignedText.startsWith(u'-'))
            unsignedText.remove(0, 1);
        bool isNumber = false;
        text.toDouble(&isNumber);
        return isNumber || notFinite.contains(unsignedText);
    }

    static bool isBase64(const QString &text)
    {
        QByteArray digits = text.toLatin1();
        digits.removeIf([](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
        return digits.size() % 4 == 0 &&
               QByteArray::fromBase64Encoding(digits, QByteArray::AbortOnBase64DecodingErrors)
                       .decodingStatus == QByteArray::Base64DecodingStatus::Ok;
    }

    QXmlStreamReader m_reader;
};

void freeLibraryMemory(void *memory)
{
#ifdef HMATNIK_PLIST_HAS_SIGNED_INTEGERS
    plist_mem_free(memory);
#else
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc): what releases before 2.3 ask for
#endif
}

plist_t newInteger(qint64 value)
{
#ifdef HMATNIK_PLIST_HAS_SIGNED_INTEGERS
    return plist_new_int(value);
#else
    return plist_new_uint(static_cast<std::uint64_t>(value));
#endif
}

#ifndef HMATNIK_PLIST_HAS_SIGNED_INTEGERS
/// Whether a number with the highest bit set is a negative one, and not one beyond 63 bits.
/// Releases before 2.3 know the difference, but tell it only where they write the number.
bool isWrittenNegative(plist_t node)
{
    char *text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node, &text, &length);
    const bool isNegative =
        QByteArrayView(text, static_cast<qsizetype>(length)).contains("<integer>-");
    freeLibraryMemory(text);
    return isNegative;
}
#endif

QVariant integerFromNode(plist_t node)
{
#ifdef HMATNIK_PLIST_HAS_SIGNED_INTEGERS
    if (plist_int_val_is_negative(node)) {
        std::int64_t value = 0;
        plist_get_int_val(node, &value);
        return QVariant::fromValue<qint64>(value);
    }
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    if (value > static_cast<std::uint64_t>(std::numeric_limits<qint64>::max()))
        return {};
    return QVariant::fromValue<qint64>(static_cast<qint64>(value));
#else
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    const auto number = static_cast<qint64>(value);
    if (number < 0 && !isWrittenNegative(node))
        return {};
    return QVariant::fromValue<qint64>(number);
#endif
}

QByteArray encoded(const QString &text)
{
    return escapedForXml(text).toUtf8();
}

QString decoded(const char *text, qsizetype length)
{
    // U+FEFF at the start belongs to the text; by itself Qt takes it for a byte order mark.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return unescapedFromXml(decoder.decode(QByteArrayView(text, length)));
}

/// Calls the function with the key and the node of each entry.
template <typename Function>
void forEachEntry(plist_t dictionary, Function function)
{
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(dictionary, &iterator);
    for (;;) {
        char *key = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(dictionary, iterator, &key, &node);
        if (!node)
            break;
        function(static_cast<const char *>(key), node);
        freeLibraryMemory(key);
    }
    freeLibraryMemory(iterator);
}

QVariant fromNode(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return QVariant(value != 0);
    }
    case PLIST_UINT:
        return integerFromNode(node);
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return QVariant(value);
    }
    case PLIST_STRING: {
        std::uint64_t length = 0;
        const char *text = plist_get_string_ptr(node, &length);
        return QVariant(decoded(text, static_cast<qsizetype>(length)));
    }
    case PLIST_DATA: {
        std::uint64_t length = 0;
        const char *bytes = plist_get_data_ptr(node, &length);
        return QVariant(QByteArray(bytes, static_cast<qsizetype>(length)));
    }
    case PLIST_ARRAY: {
        QVariantList list;
        const std::uint32_t count = plist_array_get_size(node);
        list.reserve(count);
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(node, &iterator);
        for (std::uint32_t i = 0; i < count; ++i) {
            plist_t item = nullptr;
            plist_array_next_item(node, iterator, &item);
            list.append(item ? fromNode(item) : QVariant());
        }
        freeLibraryMemory(iterator);
        return list;
    }
    case PLIST_DICT: {
        QVariantMap map;
        forEachEntry(node, [&map](const char *key, plist_t entry) {
            map.insert(decoded(key, static_cast<qsizetype>(qstrlen(key))), fromNode(entry));
        });
        return map;
    }
    default:
        return {};
    }
}

/// The node for a value; null if the value, or one inside, is of a type that is not stored.
plist_t toNode(const QVariant &value, int depth) // NOLINT(misc-no-recursion): depth is bounded
{
    if (depth > maximumDepth)
        return nullptr;
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool() ? 1 : 0);
    case QMetaType::LongLong:
        return newInteger(value.toLongLong());
    case QMetaType::Double:
        return std::isfinite(value.toDouble()) ? plist_new_real(value.toDouble()) : nullptr;
    case QMetaType::QString:
        return plist_new_string(encoded(value.toString()).constData());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return plist_new_data(bytes.constData(), static_cast<std::uint64_t>(bytes.size()));
    }
    case QMetaType::QVariantList: {
        plist_t array = plist_new_array();
        const QVariantList list = value.toList();
        for (const QVariant &item : list) {
            plist_t node = toNode(item, depth + 1);
            if (!node) {
                plist_free(array);
                return nullptr;
            }
            plist_array_append_item(array, node);
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        plist_t dictionary = plist_new_dict();
        const QVariantMap map = value.toMap();
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
            plist_t node = toNode(entry.value(), depth + 1);
            if (!node) {
                plist_free(dictionary);
                return nullptr;
            }
            plist_dict_set_item(dictionary, encoded(entry.key()).constData(), node);
        }
        return dictionary;
    }
    default:
        return nullptr;
    }
}

} // namespace

void PropertyList::Free::operator()(void *node) const
{
    plist_free(node);
}

PropertyList::PropertyList()
    : m_root(plist_new_dict())
{
}

PropertyList::PropertyList(Node root)
    : m_root(std::move(root))
{
}

PropertyList::~PropertyList() = default;
PropertyList::PropertyList(PropertyList &&) noexcept = default;
PropertyList &PropertyList::operator=(PropertyList &&) noexcept = default;

std::optional<PropertyList> PropertyList::fromXml(const QByteArray &xml)
{
    if (xml.size() > std::numeric_limits<std::uint32_t>::max() || !Validator(xml).isDictionary())
        return std::nullopt;
    const NeutralNumbers neutralNumbers;
    plist_t root = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &root);
    Node node(root);
    if (!node || plist_get_node_type(root) != PLIST_DICT)
        return std::nullopt;
    return PropertyList(std::move(node));
}

QByteArray PropertyList::toXml() const
{
    const NeutralNumbers neutralNumbers;
    char *text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(m_root.get(), &text, &length);
    QByteArray xml(text, static_cast<qsizetype>(length));
    freeLibraryMemory(text);
    return xml;
}

QVariant PropertyList::value(const QString &key) const
{
    plist_t node = plist_dict_get_item(m_root.get(), encoded(key).constData());
    return node ? fromNode(node) : QVariant();
}

bool PropertyList::setValue(const QString &key, const QVariant &value)
{
    plist_t node = toNode(value, 2);
    if (!node)
        return false;
    plist_dict_set_item(m_root.get(), encoded(key).constData(), node);
    return true;
}

bool PropertyList::contains(const QString &key) const
{
    return plist_dict_get_item(m_root.get(), encoded(key).constData()) != nullptr;
}

void PropertyList::remove(const QString &key)
{
    const QByteArray name = encoded(key);
    if (plist_dict_get_item(m_root.get(), name.constData()))
        plist_dict_remove_item(m_root.get(), name.constData());
}

void PropertyList::copyEntry(const QString &key, const PropertyList &other)
{
    const QByteArray name = encoded(key);
    plist_t node = plist_dict_get_item(other.m_root.get(), name.constData());
    if (node)
        plist_dict_set_item(m_root.get(), name.constData(), plist_copy(node));
    else
        remove(key);
}

} // namespace hmatnik::platform
