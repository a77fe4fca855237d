#include <plix/platform/appkit/nib/NibReading.h>

#include <plix/platform/appkit/nib/NibParser.h>
#include <plix/platform/appkit/nib/nib_values.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

/// Beyond this a coordinate is a mistake, and sums of some would leave what drawing counts with.
constexpr float farthestCoordinate = 1e6F;

}

NibReading::NibReading(NibParser& parser, CFXMLTree const& element, NibObject& object, std::string path)
    : m_parser(&parser)
    , m_element(&element)
    , m_object(&object)
    , m_path(std::move(path))
{
}

// MARK: the element

bool NibReading::has(std::string_view attribute) const
{
    return m_element->node().attribute(attribute) != nullptr;
}

std::string_view NibReading::word(std::string_view attribute) const
{
    auto const* written = m_element->node().attribute(attribute);
    return written ? std::string_view(*written) : std::string_view {};
}

CFXMLTree const* NibReading::childUnlessNil(std::string_view child, std::string_view key)
{
    auto const* element = childWithKey(child);
    if (!element || !element->isElement("nil"))
        return element;
    set(key, ObjectValue());
    return nullptr;
}

CFXMLTree const* NibReading::childWithKey(std::string_view key)
{
    for (auto const& child : m_element->children()) {
        auto const* written = child->isElement() ? child->node().attribute("key") : nullptr;
        if (written && *written == key) {
            m_read.push_back(child.get());
            return child.get();
        }
    }
    return nullptr;
}

CFXMLTree const* NibReading::childNamed(std::string_view name)
{
    auto const* child = m_element->childElement(name);
    if (child)
        m_read.push_back(child);
    return child;
}

bool NibReading::hasRead(CFXMLTree const& child) const
{
    return std::ranges::find(m_read, &child) != m_read.end();
}

std::string NibReading::keyFor(std::string_view name) const
{
    return m_path.empty() ? std::string() : m_path + "." + std::string(name);
}

void NibReading::refuse(std::string const& reason)
{
    m_parser->refuse(m_object->label, reason);
}

void NibReading::warn(std::string const& what)
{
    m_parser->warn(m_object->label, what);
}

// MARK: values

template <typename Value>
std::optional<Value> NibReading::plain(std::string_view attribute, std::optional<Value> (*read)(std::string_view))
{
    auto const* written = m_element->node().attribute(attribute);
    if (!written)
        return {};
    auto const value = read(*written);
    if (!value)
        refuse("its " + std::string(attribute) + " is \"" + *written + "\"");
    return value;
}

std::optional<bool> NibReading::flagValue(std::string_view attribute)
{
    return plain(attribute, nibFlag);
}

std::optional<long> NibReading::integerValue(std::string_view attribute)
{
    return plain(attribute, nibInteger);
}

std::optional<double> NibReading::numberValue(std::string_view attribute)
{
    return plain(attribute, nibNumber);
}

std::optional<unsigned> NibReading::maskValue(std::string_view child, std::span<NibWord const> words)
{
    auto const* element = childWithKey(child);
    if (!element)
        return {};
    unsigned mask = 0;
    for (auto const& each : words) {
        auto const* written = element->node().attribute(each.word);
        auto const value = written ? nibFlag(*written) : false;
        if (!value)
            refuse("the " + std::string(each.word) + " of its " + std::string(child) + " is \"" + *written + "\"");
        else if (*value)
            mask |= static_cast<unsigned>(each.value);
    }
    return mask;
}

std::optional<std::string> NibReading::textValue(std::string_view attribute)
{
    if (auto const* written = m_element->node().attribute(attribute))
        return *written;
    auto const* element = childWithKey(attribute);
    if (!element)
        return {};
    if (element->isElement("nil") || element->isElement("null"))
        return std::string();
    auto text = nibString(*element);
    if (!text)
        refuse("its " + std::string(attribute) + " is damaged");
    return text;
}

std::optional<std::vector<float>> NibReading::numbers(std::string_view child, std::span<std::string_view const> attributes)
{
    auto const* element = childWithKey(child);
    if (!element)
        return {};
    std::vector<float> values;
    for (auto const attribute : attributes) {
        auto const* written = element->node().attribute(attribute);
        auto const number = written ? nibNumber(*written) : std::nullopt;
        if (!number) {
            refuse("the " + std::string(attribute) + " of its " + std::string(child)
                + (written ? " is \"" + *written + "\"" : " is missing"));
            return {};
        }
        values.push_back(std::clamp(static_cast<float>(std::clamp(*number, -1e9, 1e9)), -farthestCoordinate, farthestCoordinate));
    }
    return values;
}

std::optional<Rect> NibReading::rectValue(std::string_view child)
{
    static constexpr std::string_view attributes[] = { "x", "y", "width", "height" };
    auto const values = numbers(child, attributes);
    if (!values)
        return {};
    return Rect { (*values)[0], (*values)[1], std::max((*values)[2], 0.0F), std::max((*values)[3], 0.0F) };
}

std::optional<Size> NibReading::sizeValue(std::string_view child)
{
    static constexpr std::string_view attributes[] = { "width", "height" };
    auto const values = numbers(child, attributes);
    return values ? std::optional(Size { (*values)[0], (*values)[1] }) : std::nullopt;
}

std::vector<std::string> NibReading::strings(std::string_view list)
{
    std::vector<std::string> texts;
    auto const* element = childNamed(list);
    if (!element)
        return texts;
    for (auto const& child : element->children()) {
        if (!child->isElement("string") && !child->isElement("mutableString"))
            continue;
        auto text = nibString(*child);
        if (!text)
            refuse("a text of its " + std::string(list) + " is damaged");
        texts.push_back(text.value_or(""));
    }
    return texts;
}

void NibReading::part(std::string_view child, FunctionRef<void(NibReading&)> read)
{
    auto const* element = childWithKey(child);
    if (!element)
        return;
    NibReading reading(*m_parser, *element, *m_object, keyFor(child));
    read(reading);
}

void NibReading::parts(std::string_view list, FunctionRef<void(NibReading&)> read)
{
    auto const* element = childNamed(list);
    if (!element)
        return;
    std::size_t place = 0;
    for (auto const& child : element->children()) {
        if (!child->isElement())
            continue;
        NibObject scratch;
        scratch.label = m_object->label;
        NibReading reading(*m_parser, *child, scratch, keyFor(list) + "[" + std::to_string(place++) + "]");
        read(reading);
    }
}

// MARK: what is kept

void NibReading::set(std::string_view key, NibValue value)
{
    auto& values = m_object->values;
    auto const found = std::ranges::find(values, key, [](auto const& entry) { return entry.first; });
    if (found != values.end())
        found->second = std::move(value);
    else
        values.emplace_back(key, std::move(value));
}

NibValue NibReading::value(std::string_view key) const
{
    auto const* kept = m_object->value(key);
    return kept ? *kept : NibValue {};
}

void NibReading::flag(std::string_view attribute, std::string_view key)
{
    if (auto const value = flagValue(attribute))
        set(key, *value);
}

void NibReading::integer(std::string_view attribute, std::string_view key)
{
    if (auto const value = integerValue(attribute))
        set(key, *value);
}

void NibReading::number(std::string_view attribute, std::string_view key)
{
    if (auto const value = numberValue(attribute))
        set(key, *value);
}

void NibReading::numberOf(std::string_view child, std::string_view key)
{
    part(child, [&](NibReading& number) {
        if (number.m_element->isElement("integer"))
            number.integer("value", key);
        else
            number.number("value", key);
    });
}

void NibReading::text(std::string_view attribute, std::string_view key)
{
    text(attribute, key, attribute);
}

void NibReading::text(std::string_view attribute, std::string_view key, std::string_view translatedAs)
{
    if (auto value = textValue(attribute))
        set(key, NibValue { NibText { std::move(*value), keyFor(translatedAs) } });
}

void NibReading::code(std::string_view attribute, std::string_view key)
{
    if (auto value = textValue(attribute))
        set(key, std::move(*value));
}

void NibReading::choice(std::string_view attribute, std::string_view key, std::span<NibWord const> words)
{
    auto const* written = m_element->node().attribute(attribute);
    if (!written)
        return;
    auto const found = std::ranges::find(words, *written, &NibWord::word);
    if (found == words.end())
        warn(std::string(attribute) + " \"" + *written + "\" is not known");
    else
        set(key, found->value);
}

void NibReading::mask(std::string_view child, std::string_view key, std::span<NibWord const> words)
{
    if (auto const value = maskValue(child, words))
        set(key, *value);
}

void NibReading::rect(std::string_view child, std::string_view key)
{
    if (auto const value = rectValue(child))
        set(key, NSStringFromRect(*value));
}

void NibReading::point(std::string_view child, std::string_view key)
{
    static constexpr std::string_view attributes[] = { "x", "y" };
    if (auto const values = numbers(child, attributes))
        set(key, NSStringFromPoint({ (*values)[0], (*values)[1] }));
}

void NibReading::range(std::string_view child, std::string_view key)
{
    part(child, [&](NibReading& range) {
        auto const location = range.integerValue("location");
        auto const length = range.integerValue("length");
        if (location && length)
            set(key, "{" + std::to_string(*location) + ", " + std::to_string(*length) + "}");
    });
}

void NibReading::size(std::string_view child, std::string_view key)
{
    if (auto const value = sizeValue(child))
        set(key, NSStringFromSize(*value));
}

void NibReading::font(std::string_view child, std::string_view key)
{
    auto const* element = childWithKey(child);
    if (!element || !element->isElement("font"))
        return;
    auto const font = nibFont(*element);
    if (!font)
        refuse("its " + std::string(child) + " is damaged");
    set(key, font);
}

void NibReading::color(std::string_view child, std::string_view key)
{
    auto const* element = childUnlessNil(child, key);
    if (!element)
        return;
    if (auto const color = nibColor(*element))
        set(key, color);
    else if (auto const* name = element->node().attribute("name"))
        warn("the color \"" + *name + "\" is not known");
    else
        refuse("its " + std::string(child) + " is damaged");
}

void NibReading::image(std::string_view attribute, std::string_view key)
{
    if (auto const* name = m_element->node().attribute(attribute))
        set(key, NibValue { NibImageName { *name } });
}

void NibReading::attributedText(std::string_view child, std::string_view key)
{
    auto const* element = childWithKey(child);
    if (!element)
        return;
    auto const text = make<NSMutableAttributedString>();
    for (auto const& fragment : element->children()) {
        if (!fragment->isElement("fragment"))
            continue;
        Attributes attributes;
        auto const* content = fragment->node().attribute("content");
        std::string written = content ? *content : "";
        for (auto const& part : fragment->children()) {
            if (part->isElement("string") || part->isElement("mutableString"))
                written = nibString(*part).value_or("");
            auto const* described = part->isElement("attributes") ? part.get() : nullptr;
            for (auto const& each : described ? described->children() : std::vector<Ref<CFXMLTree>> {}) {
                auto const font = each->isElement("font") ? nibFont(*each) : nullptr;
                auto const color = each->isElement("color") ? nibColor(*each) : nullptr;
                if (font)
                    attributes[NSFontAttributeName] = font;
                if (color)
                    attributes[NSForegroundColorAttributeName] = color;
            }
        }
        text->appendAttributedString(*make<NSAttributedString>(written, attributes));
    }
    set(key, Ref<NSAttributedString>(text));
}

void NibReading::object(std::string_view child, std::string_view key, std::string_view role)
{
    auto const* element = childUnlessNil(child, key);
    if (!element)
        return;
    if (auto const* made = m_parser->object(*element, role, keyFor(child)))
        set(key, NibValue { made });
}

void NibReading::objects(std::string_view list, std::string_view key, std::string_view role)
{
    auto const* element = childNamed(list);
    if (!element)
        return;
    NibValue::Array objects;
    for (auto const& child : element->children()) {
        if (!child->isElement())
            continue;
        if (auto const* made = m_parser->object(*child, role, keyFor(list) + "[" + std::to_string(objects.size()) + "]"))
            objects.push_back({ made });
    }
    set(key, NibValue { std::move(objects) });
}

void NibReading::reference(std::string_view attribute, std::string_view key, std::string_view role)
{
    if (auto const* id = m_element->node().attribute(attribute))
        m_parser->reference(*m_object, key, *id, role);
}

}
