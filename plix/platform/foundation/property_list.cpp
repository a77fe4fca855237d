#include <plix/platform/foundation/property_list.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/foundation/date_text.h>

#include <charconv>
#include <cmath>

namespace plix {

namespace {

/// Below what the reader's tree may be, with room for the list's own elements.
constexpr int deepest = 200;
constexpr auto dateFormat = "%Y-%m-%dT%H:%M:%SZ";

std::string_view trimmed(std::string_view text)
{
    auto const start = text.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view {} : text.substr(start, text.find_last_not_of(" \t\r\n") - start + 1);
}

std::optional<ObjectValue> integerValue(std::string_view text)
{
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    bool const isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), magnitude, isHexadecimal ? 16 : 10);
    if (text.empty() || result.ec != std::errc {} || result.ptr != text.data() + text.size())
        return {};
    constexpr std::uint64_t largest = INT64_MAX;
    if (magnitude > largest + (isNegative ? 1 : 0))
        return ObjectValue(isNegative ? -static_cast<double>(magnitude) : static_cast<double>(magnitude));
    return ObjectValue(static_cast<std::int64_t>(isNegative ? 0 - magnitude : magnitude));
}

std::optional<ObjectValue> realValue(std::string_view text)
{
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0;
    if (text == "nan" || text == "infinity" || text == "inf") {
        value = text == "nan" ? std::nan("") : HUGE_VAL;
    } else {
        if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9')))
            return {};
        auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ptr != text.data() + text.size())
            return {};
        if (result.ec == std::errc::result_out_of_range)
            value = doubleValue(text);
    }
    return ObjectValue(isNegative ? -value : value);
}

std::optional<ObjectValue> dateValue(std::string_view text)
{
    auto const parsed = parseDate(text, dateFormat, DateNames::english(), {});
    if (!parsed)
        return {};
    return ObjectValue(NSDate { clockSeconds(parsed->fields) });
}

std::optional<ObjectValue> dataValue(std::string_view text)
{
    auto bytes = bytesOfBase64(text);
    if (!bytes)
        return {};
    return ObjectValue(make<NSData>(std::move(*bytes)));
}

std::optional<ObjectValue> valueOf(CFXMLTree const& element, std::string& error);

std::vector<CFXMLTree*> elementsIn(CFXMLTree const& element)
{
    std::vector<CFXMLTree*> elements;
    for (auto const& child : element.children()) {
        if (child->isElement())
            elements.push_back(child.get());
    }
    return elements;
}

std::optional<ObjectValue> dictionaryValue(CFXMLTree const& element, std::string& error)
{
    ObjectValue::Dictionary dictionary;
    auto const elements = elementsIn(element);
    for (std::size_t i = 0; i < elements.size(); i += 2) {
        if (!elements[i]->isElement("key") || i + 1 == elements.size()) {
            error = "a dictionary has a key without a value, or a value without a key";
            return {};
        }
        auto value = valueOf(*elements[i + 1], error);
        if (!value)
            return {};
        dictionary.insert_or_assign(elements[i]->text(), std::move(*value));
    }
    return ObjectValue(std::move(dictionary));
}

std::optional<ObjectValue> arrayValue(CFXMLTree const& element, std::string& error)
{
    ObjectValue::Array array;
    for (auto const* child : elementsIn(element)) {
        auto value = valueOf(*child, error);
        if (!value)
            return {};
        array.push_back(std::move(*value));
    }
    return ObjectValue(std::move(array));
}

std::optional<ObjectValue> valueOf(CFXMLTree const& element, std::string& error)
{
    auto const& name = element.node().string;
    if (name == "dict")
        return dictionaryValue(element, error);
    if (name == "array")
        return arrayValue(element, error);
    if (name == "true" || name == "false")
        return ObjectValue(name == "true");
    auto const text = element.text();
    if (name == "string")
        return ObjectValue(text);
    std::optional<ObjectValue> value;
    if (name == "integer")
        value = integerValue(trimmed(text));
    else if (name == "real")
        value = realValue(trimmed(text));
    else if (name == "date")
        value = dateValue(trimmed(text));
    else if (name == "data")
        value = dataValue(text);
    if (!value && error.empty())
        error = "<" + name + "> holds no value";
    return value;
}

class Writer {
public:
    bool write(ObjectValue const& value, int depth)
    {
        if (depth > deepest)
            return false;
        m_text.append(static_cast<std::size_t>(depth), '\t');
        if (auto const* dictionary = value.dictionary())
            return writeDictionary(*dictionary, depth);
        if (auto const* array = value.array())
            return writeArray(*array, depth);
        return writeLeaf(value);
    }
    std::string& text() { return m_text; }

private:
    bool writeDictionary(ObjectValue::Dictionary const& dictionary, int depth)
    {
        m_text += "<dict>\n";
        for (auto const& [key, value] : dictionary) {
            m_text.append(static_cast<std::size_t>(depth) + 1, '\t');
            element("key", xmlEscaped(key));
            if (!write(value, depth + 1))
                return false;
        }
        m_text.append(static_cast<std::size_t>(depth), '\t').append("</dict>\n");
        return true;
    }
    bool writeArray(ObjectValue::Array const& array, int depth)
    {
        m_text += "<array>\n";
        for (auto const& value : array) {
            if (!write(value, depth + 1))
                return false;
        }
        m_text.append(static_cast<std::size_t>(depth), '\t').append("</array>\n");
        return true;
    }
    bool writeLeaf(ObjectValue const& value)
    {
        if (value.isBool())
            m_text += value.boolValue() ? "<true/>\n" : "<false/>\n";
        else if (value.isInteger())
            element("integer", value.description());
        else if (value.isDouble())
            element("real", realText(value.doubleValue()));
        else if (auto const* string = value.string())
            element("string", xmlEscaped(*string));
        else if (auto const* date = value.date())
            element("date",
                formatDate(fieldsFromClockSeconds(std::round(date->timeIntervalSinceReferenceDate)), {}, dateFormat,
                    DateNames::english()));
        else if (auto const data = value.as<NSData>())
            element("data", base64(data->bytes()));
        else
            return false;
        return true;
    }
    static std::string realText(double value)
    {
        if (std::isnan(value))
            return "nan";
        if (std::isinf(value))
            return value > 0 ? "+infinity" : "-infinity";
        return ObjectValue(value).description();
    }
    void element(std::string_view name, std::string_view contents)
    {
        m_text.append("<").append(name).append(">").append(contents).append("</").append(name).append(">\n");
    }

    std::string m_text;
};

}

std::optional<ObjectValue> propertyListFromXML(std::span<std::uint8_t const> bytes, std::string& error)
{
    error.clear();
    auto const tree = CFXMLTree::treeWithData(bytes, error, XMLWhitespace::Kept);
    if (!tree)
        return {};
    auto const& root = *tree->documentElement();
    if (!root.isElement("plist"))
        return valueOf(root, error);
    auto const elements = elementsIn(root);
    if (elements.size() != 1) {
        error = "<plist> holds no single value";
        return {};
    }
    return valueOf(*elements.front(), error);
}

std::optional<std::string> xmlFromPropertyList(ObjectValue const& value)
{
    Writer writer;
    writer.text() = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                    "<plist version=\"1.0\">\n";
    if (!writer.write(value, 0))
        return {};
    writer.text() += "</plist>\n";
    return std::move(writer.text());
}

}
