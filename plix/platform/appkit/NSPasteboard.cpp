#include <plix/platform/appkit/NSPasteboard.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/Host.h>

#include <algorithm>

namespace plix {

namespace {

std::map<std::string, Ref<NSPasteboard>, std::less<>>& pasteboards()
{
    static auto& s_pasteboards = *new std::map<std::string, Ref<NSPasteboard>, std::less<>>;
    return s_pasteboards;
}

}

PLIX_DESCRIBE(NSPasteboard)
{
}

NSPasteboard& NSPasteboard::pasteboardWithName(std::string_view name)
{
    auto& found = pasteboards()[std::string(name)];
    if (!found) {
        found = make<NSPasteboard>();
        found->m_name = name;
    }
    return *found;
}

Ref<NSPasteboard> NSPasteboard::pasteboardWithUniqueName()
{
    auto pasteboard = make<NSPasteboard>();
    pasteboard->m_name = "NSPasteboard " + std::to_string(pasteboard->serialNumber());
    return pasteboard;
}

bool NSPasteboard::isGeneral() const
{
    return m_name == NSGeneralPboard;
}

/// Another application's text replaces what this one had put there.
void NSPasteboard::takeForeignText() const
{
    if (!isGeneral())
        return;
    auto& clipboard = host().clipboard();
    auto const changeCount = clipboard.changeCount();
    if (changeCount == m_hostChangeCount)
        return;
    m_hostChangeCount = changeCount;
    ++m_changeCount;
    m_values.clear();
    m_provider = {};
    m_types.clear();
    if (clipboard.hasText())
        m_types.emplace_back(NSStringPboardType);
}

long NSPasteboard::changeCount() const
{
    takeForeignText();
    return m_changeCount;
}

long NSPasteboard::declareTypes(std::vector<std::string> types, Provider provider)
{
    takeForeignText();
    m_types = std::move(types);
    m_provider = std::move(provider);
    m_values.clear();
    if (isGeneral() && m_provider && std::ranges::find(m_types, NSStringPboardType) != m_types.end()) {
        // Other applications can't wait for text to be made when they paste.
        if (auto const text = m_provider(NSStringPboardType); text.string())
            setString(*text.string(), NSStringPboardType);
    }
    return ++m_changeCount;
}

long NSPasteboard::addTypes(std::vector<std::string> const& types, Provider provider)
{
    for (auto const& type : types) {
        if (std::ranges::find(m_types, type) == m_types.end())
            m_types.push_back(type);
    }
    if (provider)
        m_provider = std::move(provider);
    return m_changeCount;
}

std::vector<std::string> NSPasteboard::types() const
{
    takeForeignText();
    return m_types;
}

std::optional<std::string> NSPasteboard::availableTypeFromArray(std::vector<std::string> const& wanted) const
{
    takeForeignText();
    auto const found
        = std::ranges::find_if(wanted, [this](auto const& type) { return std::ranges::find(m_types, type) != m_types.end(); });
    return found == wanted.end() ? std::nullopt : std::optional(*found);
}

bool NSPasteboard::setPropertyList(ObjectValue value, std::string_view type)
{
    if (std::ranges::find(m_types, type) == m_types.end())
        return false;
    if (isGeneral() && type == NSStringPboardType && value.string()) {
        auto& clipboard = host().clipboard();
        clipboard.setText(*value.string());
        m_hostChangeCount = clipboard.changeCount();
    }
    m_values.insert_or_assign(std::string(type), std::move(value));
    return true;
}

bool NSPasteboard::setString(std::string_view text, std::string_view type)
{
    return setPropertyList(text, type);
}

bool NSPasteboard::setData(Ref<NSData> const& data, std::string_view type)
{
    return setPropertyList(data, type);
}

ObjectValue NSPasteboard::value(std::string_view type) const
{
    takeForeignText();
    if (std::ranges::find(m_types, type) == m_types.end())
        return {};
    auto const found = m_values.find(type);
    if (found != m_values.end())
        return found->second;
    if (isGeneral() && type == NSStringPboardType && !m_provider) {
        auto const text = host().clipboard().text();
        return text ? ObjectValue(*text) : ObjectValue();
    }
    if (!m_provider)
        return {};
    auto const provider = m_provider;
    auto provided = provider(std::string(type));
    m_values.insert_or_assign(std::string(type), provided);
    return provided;
}

std::optional<std::string> NSPasteboard::stringForType(std::string_view type) const
{
    auto const held = value(type);
    return held.string() ? std::optional(*held.string()) : std::nullopt;
}

Ref<NSData> NSPasteboard::dataForType(std::string_view type) const
{
    return value(type).as<NSData>();
}

ObjectValue NSPasteboard::propertyListForType(std::string_view type) const
{
    return value(type);
}

}
