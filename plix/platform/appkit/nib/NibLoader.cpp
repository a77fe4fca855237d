#include <plix/platform/appkit/nib/NibLoader.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFontManager.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/geometry.h>

#include <algorithm>

namespace plix {

/// What is made for an object of whose class nothing is known.
class NibPlainObject final : public NSObject {
    PLIX_CLASS(NibPlainObject, NSObject);
};

namespace {

/// References can lead from object to object; no interface is built that deep.
constexpr int deepestMaking = 300;
constexpr std::size_t mostWarnings = 1000;

/// The one object of a class that has no more, or a new one.
Ref<NSObject> plainObject(Class const& itsClass)
{
    if (itsClass.isSubclassOfClass(NSApplication::staticClass()))
        return NSApp.ref();
    if (itsClass == NSFontManager::staticClass())
        return &NSFontManager::sharedFontManager();
    if (itsClass == NSDocumentController::staticClass())
        return &NSDocumentController::sharedDocumentController();
    return itsClass == NSObject::staticClass() ? plix::make<NibPlainObject>() : itsClass.makeObject();
}

}

PLIX_DESCRIBE(NibPlainObject)
{
}

/// Reads an element's values in the place of an archive's.
class NibLoader::Coder final : public NSCoder {
public:
    Coder(NibLoader& loader, NibObject const& object)
        : m_loader(loader)
        , m_object(object)
    {
    }
    void encodeObject(ObjectValue const&) override { }
    void encodeObject(ObjectValue const&, std::string_view) override { }
    ObjectValue decodeObject() override { return {}; }
    ObjectValue decodeObjectForKey(std::string_view key) override { return m_loader.value(m_object, key); }
    bool containsValueForKey(std::string_view key) const override { return m_object.value(key) != nullptr; }

private:
    NibLoader& m_loader;
    NibObject const& m_object;
};

NibLoader::NibLoader(NibDocument const& document, NSObject* owner, Resources resources)
    : m_document(document)
    , m_owner(owner)
    , m_resources(std::move(resources))
    , m_made(document.objects.size())
{
}

NibLoader::~NibLoader() = default;

bool NibLoader::load()
{
    Ref<NSObject> const protector(m_owner);
    for (auto const* topLevel : m_document.topLevelObjects) {
        if (auto made = object(*topLevel))
            m_topLevelObjects.push_back(std::move(made));
    }
    // The three that stand for others, where nothing refers to them yet.
    for (auto const* id : { "-1", "-2", "-3" }) {
        auto const found = m_document.objectOfID.find(id);
        if (found != m_document.objectOfID.end())
            object(*found->second);
    }
    if (!m_problem.empty()) {
        m_topLevelObjects.clear();
        return false;
    }
    for (auto const& each : m_document.objects)
        setProperties(each);
    for (auto const& each : m_document.objects)
        connect(each);
    awaken();
    showInterface();
    return true;
}

NSObject* NibLoader::objectWithID(std::string const& id) const
{
    auto const found = m_document.objectOfID.find(id);
    return found == m_document.objectOfID.end() ? nullptr : m_made[found->second->index].object.get();
}

void NibLoader::refuse(NibObject const& object, std::string const& reason)
{
    if (m_problem.empty())
        m_problem = object.label + ": " + reason;
}

void NibLoader::warn(NibObject const& object, std::string const& what)
{
    addWarning(object.label + ": " + what);
}

void NibLoader::addWarning(std::string line)
{
    if (m_warnings.size() < mostWarnings && std::ranges::find(m_warnings, line) == m_warnings.end())
        m_warnings.push_back(std::move(line));
}

// MARK: making

Ref<NSObject> NibLoader::object(NibObject const& described)
{
    auto& entry = m_made[described.index];
    if (entry.state == State::made)
        return entry.object;
    if (entry.state == State::beingMade || m_depth == deepestMaking) {
        refuse(described, entry.state == State::beingMade ? "it contains itself" : "references lead too deep to it");
        return nullptr;
    }
    entry.state = State::beingMade;
    ++m_depth;
    auto made = make(described);
    --m_depth;
    entry.object = made; // the vector has its size from the beginning
    entry.state = State::made;
    return made;
}

Class const& NibLoader::classOf(NibObject const& described)
{
    auto const& own = *NSClassFromString(described.kind->className);
    if (described.customClass.empty())
        return own;
    auto const* custom = NSClassFromString(described.customClass);
    auto const* role = NSClassFromString(described.kind->role);
    if (custom && custom->isSubclassOfClass(*role))
        return *custom;
    warn(described,
        "its class \"" + described.customClass + "\" is " + (custom ? "no " + role->name() : "not known") + "; " + own.name()
            + " stands in");
    return own;
}

Ref<NSObject> NibLoader::make(NibObject const& described)
{
    if (described.id == "-1")
        return nullptr;
    if (described.id == "-2")
        return m_owner;
    if (described.id == "-3")
        return NSApp.ref();
    auto const& itsClass = classOf(described);
    Ref<NSObject> made;
    if (described.kind->making == NibMaking::window)
        made = makeWindow(itsClass, described);
    else if (described.kind->making == NibMaking::fromCoder)
        made = makeFromCoder(itsClass, described);
    else
        made = plainObject(itsClass);
    if (!made && m_problem.empty())
        warn(described, "no " + itsClass.name() + " could be made");
    return made;
}

Ref<NSObject> NibLoader::makeFromCoder(Class const& itsClass, NibObject const& described)
{
    auto made = itsClass.allocate();
    if (!made)
        return nullptr;
    auto const* reader = &itsClass;
    while (reader && !reader->readsFromCoder())
        reader = reader->superclass();
    Coder coder(*this, described);
    return reader && reader->initObject(*made, coder) ? made : nullptr;
}

Ref<NSObject> NibLoader::makeWindow(Class const& itsClass, NibObject const& described)
{
    auto const made = as<NSWindow>(itsClass.allocate());
    WindowPlacement placement;
    placement.contentRect = NSRectFromString(value(described, "contentRect").description());
    placement.styleMask = static_cast<unsigned>(value(described, "styleMask").intValue());
    placement.defer = flag(described, "deferred", true);
    if (!made || !itsClass.initWindow(*made, placement))
        return nullptr;
    auto& window = *made;
    auto const size = [&](std::string_view key, void (NSWindow::*setter)(Size)) {
        if (described.value(key))
            (window.*setter)(NSSizeFromString(value(described, key).description()));
    };
    if (described.value("title"))
        window.setTitle(value(described, "title").description());
    size("minSize", &NSWindow::setMinSize);
    size("maxSize", &NSWindow::setMaxSize);
    size("contentMinSize", &NSWindow::setContentMinSize);
    size("contentMaxSize", &NSWindow::setContentMaxSize);
    window.setHidesOnDeactivate(flag(described, "hidesOnDeactivate", false));
    window.setReleasedWhenClosed(flag(described, "releasedWhenClosed", true));
    window.setHasShadow(flag(described, "hasShadow", true));
    window.setAutorecalculatesKeyViewLoop(flag(described, "autorecalculatesKeyViewLoop", true));
    if (described.value("showsResizeIndicator"))
        window.setShowsResizeIndicator(flag(described, "showsResizeIndicator", true));
    if (auto const color = value(described, "backgroundColor").as<NSColor>())
        window.setBackgroundColor(color);
    if (auto const content = value(described, "contentView").as<NSView>())
        window.setContentView(content);
    if (described.value("frameAutosaveName"))
        window.setFrameAutosaveName(value(described, "frameAutosaveName").description());
    return made;
}

ObjectValue NibLoader::value(NibObject const& described, std::string_view key)
{
    auto const* found = described.value(key);
    return found ? value(*found) : ObjectValue();
}

bool NibLoader::flag(NibObject const& described, std::string_view key, bool otherwise)
{
    auto const* found = described.value(key);
    return found ? value(*found).boolValue() : otherwise;
}

ObjectValue NibLoader::value(NibValue const& written)
{
    if (auto const* plain = std::get_if<ObjectValue>(&written.value))
        return *plain;
    if (auto const* text = std::get_if<NibText>(&written.value))
        return m_resources.localized(*text);
    if (auto const* wanted = std::get_if<NibImageName>(&written.value)) {
        auto const image = m_resources.imageNamed(wanted->name);
        if (!image)
            addWarning("the image \"" + wanted->name + "\" is not there");
        return image;
    }
    if (auto const* described = std::get_if<NibObject const*>(&written.value))
        return object(**described);
    ObjectValue::Array values;
    for (auto const& each : std::get<NibValue::Array>(written.value))
        values.push_back(value(each));
    return values;
}

// MARK: waking

void NibLoader::awaken()
{
    for (auto const& each : m_made) {
        auto const awakened = each.object;
        if (awakened && awakened != m_owner && awakened != NSApp.ref())
            awakened->awakeFromNib();
    }
    if (m_owner && m_document.objectOfID.contains("-2"))
        m_owner->awakeFromNib();
}

void NibLoader::showInterface()
{
    for (auto const* described : m_document.topLevelObjects) {
        auto const menu = as<NSMenu>(m_made[described->index].object);
        if (menu && NSApp && m_owner == NSApp.get() && value(*described, "systemMenu").description() == "main")
            NSApp->setMainMenu(menu);
    }
    for (auto const& described : m_document.objects) {
        if (described.kind->making != NibMaking::window || !flag(described, "visibleAtLaunch", true))
            continue;
        if (auto const window = as<NSWindow>(m_made[described.index].object))
            window->makeKeyAndOrderFront(nullptr);
    }
}

}
