#include <plix/platform/appkit/nib/NibParser.h>

#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/appkit/nib/nib_values.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/graphics/NSColor.h>

#include <algorithm>

namespace plix {

namespace {

/// What stands in objects of every kind and says nothing that is of use here.
constexpr std::string_view ignoredElements[] = { "accessibility", "connections", "constraints", "layoutGuides", "point",
    "userComments", "userDefinedRuntimeAttributes", "viewLayoutGuide" };

/// The types of attributes that an author adds, and what reads their values.
struct PropertyType {
    std::string_view name;
    void (*read)(NibReading&);
};
constexpr PropertyType propertyTypes[] = {
    { "boolean", [](NibReading& reading) { reading.flag("value", "value"); } },
    { "number", [](NibReading& reading) { reading.numberOf("value", "value"); } },
    { "string", [](NibReading& reading) { reading.code("value", "value"); } },
    { "localizedString", [](NibReading& reading) { reading.text("value", "value"); } },
    { "image", [](NibReading& reading) { reading.image("value", "value"); } },
    { "color", [](NibReading& reading) { reading.color("value", "value"); } },
    { "point", [](NibReading& reading) { reading.point("value", "value"); } },
    { "size", [](NibReading& reading) { reading.size("value", "value"); } },
    { "rect", [](NibReading& reading) { reading.rect("value", "value"); } },
    { "range", [](NibReading& reading) { reading.range("value", "value"); } },
    { "nil", [](NibReading& reading) { reading.set("value", ObjectValue()); } },
};

constexpr std::size_t mostWarnings = 1000;

std::string attributeOf(CFXMLTree const& element, std::string_view name)
{
    auto const* written = element.node().attribute(name);
    return written ? *written : std::string();
}

bool isOfRole(std::string_view className, std::string_view role)
{
    auto const* described = NSClassFromString(className);
    auto const* wanted = NSClassFromString(role);
    return described && wanted && described->isSubclassOfClass(*wanted);
}

}

void NibParser::parse(CFXMLTree const& root)
{
    auto const type = attributeOf(root, "type");
    if (!root.isElement("document") || !type.ends_with(".Cocoa.XIB") || !attributeOf(root, "version").starts_with("3.")) {
        refuse("", "it is no interface document of version 3");
        return;
    }
    auto const* objects = root.childElement("objects");
    if (!objects) {
        refuse("", "it has no objects");
        return;
    }
    for (auto const& child : objects->children()) {
        if (!child->isElement() || !m_problem.empty())
            continue;
        auto const* made = object(*child, "NSObject", "");
        if (made && made->id != "-1" && made->id != "-2" && made->id != "-3")
            m_document.topLevelObjects.push_back(made);
    }
    resolve();
}

void NibParser::refuse(std::string const& where, std::string const& reason)
{
    if (m_problem.empty())
        m_problem = where.empty() ? reason : where + ": " + reason;
}

void NibParser::warn(std::string const& where, std::string const& what)
{
    auto line = where + ": " + what;
    auto& warnings = m_document.warnings;
    if (warnings.size() < mostWarnings && std::ranges::find(warnings, line) == warnings.end())
        warnings.push_back(std::move(line));
}

NibObject* NibParser::object(CFXMLTree const& element, std::string_view role, std::string const& path)
{
    auto const& name = element.node().string;
    bool isKnown = true;
    auto const& kind = nibKind(name, role, isKnown);
    auto& made = m_document.objects.emplace_back();
    made.kind = &kind;
    made.index = m_document.objects.size() - 1;
    made.id = attributeOf(element, "id");
    made.label = made.id.empty() ? name : name + " " + made.id;
    made.customClass = attributeOf(element, "customClass");
    enterID(made);
    if (!isKnown)
        warn(made.label, "its kind is not known; a " + std::string(kind.className) + " stands in");
    else if (!isOfRole(kind.className, role))
        refuse(made.label, "it stands where only a " + std::string(role) + " may be");
    if (!m_problem.empty())
        return nullptr;
    NibReading reading(*this, element, made, made.id.empty() ? path : made.id);
    for (auto const read : kind.reads) {
        if (read)
            read(reading);
    }
    readConnections(element, made);
    readProperties(element, made);
    if (isKnown) {
        for (auto const& child : element.children()) {
            if (child->isElement() && !reading.hasRead(*child)
                && std::ranges::find(ignoredElements, child->node().string) == std::end(ignoredElements))
                warn(made.label, "its " + child->node().string + " is not known");
        }
    }
    return &made;
}

void NibParser::enterID(NibObject& object)
{
    if (!object.id.empty() && !m_document.objectOfID.emplace(object.id, &object).second)
        refuse(object.label, "another object has its id");
}

void NibParser::reference(NibObject& from, std::string_view key, std::string const& id, std::string_view role)
{
    m_references.push_back({ &from, key, id, role });
}

// MARK: connections

void NibParser::readConnections(CFXMLTree const& element, NibObject& object)
{
    auto const* connections = element.childElement("connections");
    if (!connections)
        return;
    for (auto const& child : connections->children()) {
        if (child->isElement())
            readConnection(*child, object);
    }
}

void NibParser::readConnection(CFXMLTree const& element, NibObject& object)
{
    NibConnection connection;
    if (element.isElement("action")) {
        connection.kind
            = attributeOf(element, "trigger") == "doubleAction" ? NibConnection::Kind::doubleAction : NibConnection::Kind::action;
        connection.name = attributeOf(element, "selector");
    } else if (element.isElement("outlet")) {
        connection.name = attributeOf(element, "property");
    } else {
        warn(object.label, "its " + element.node().string + " \"" + attributeOf(element, "name") + "\" is not known");
        return;
    }
    auto const id = attributeOf(element, connection.kind == NibConnection::Kind::outlet ? "destination" : "target");
    if (connection.name.empty() || id.empty())
        refuse(object.label, "one of its connections lacks a name or an id");
    m_connections.push_back({ &object, std::move(connection), id });
}

void NibParser::resolve()
{
    for (auto& each : m_references) {
        auto const found = m_document.objectOfID.find(each.id);
        if (found == m_document.objectOfID.end())
            refuse(each.from->label, "its " + std::string(each.key) + " is \"" + each.id + "\", which no object is");
        else if (!isOfRole(found->second->kind->className, each.role))
            refuse(each.from->label, "its " + std::string(each.key) + " is " + found->second->label);
        else
            each.from->values.emplace_back(each.key, NibValue { found->second });
    }
    for (auto& each : m_connections) {
        auto const found = m_document.objectOfID.find(each.destination);
        if (found == m_document.objectOfID.end()) {
            refuse(each.source->label,
                "its " + each.connection.name + " is connected to \"" + each.destination + "\", which no object is");
            continue;
        }
        each.connection.destination = found->second;
        each.source->connections.push_back(std::move(each.connection));
    }
}

// MARK: properties

void NibParser::readProperties(CFXMLTree const& element, NibObject& object)
{
    auto const* properties = element.childElement("userDefinedRuntimeAttributes");
    if (!properties)
        return;
    for (auto const& child : properties->children()) {
        if (child->isElement("userDefinedRuntimeAttribute"))
            readProperty(*child, object);
    }
}

void NibParser::readProperty(CFXMLTree const& element, NibObject& object)
{
    auto const name = attributeOf(element, "keyPath");
    if (name.empty())
        refuse(object.label, "one of its attributes lacks a name");
    NibObject scratch;
    scratch.label = object.label;
    NibReading reading(*this, element, scratch, object.id.empty() ? "" : object.id + "." + name);
    auto const type = reading.word("type");
    auto const found = std::ranges::find(propertyTypes, type, &PropertyType::name);
    if (found == std::end(propertyTypes)) {
        warn(object.label, "the type of its attribute \"" + name + "\" is not known");
        return;
    }
    auto const linesBefore = m_document.warnings.size();
    found->read(reading);
    if (scratch.value("value"))
        object.properties.push_back({ name, reading.value("value") });
    else if (m_document.warnings.size() == linesBefore)
        warn(object.label, "its attribute \"" + name + "\" has no value");
}

}
