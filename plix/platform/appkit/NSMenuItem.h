#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/Selector.h>
#include <plix/platform/base/Weak.h>

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

namespace plix {

class NSAttributedString;

/// For targets that say whether their items may be chosen, each time before a menu that enables its items by itself is shown or
/// looked through for a key.
class PLIX_EXPORT NSMenuValidation {
public:
    virtual ~NSMenuValidation() = default;
    /// Whether the item can be chosen now.
    virtual bool validateMenuItem(NSMenuItem&) = 0;
};

/// A line of a menu. The menu it is in, at most one, holds it.
class PLIX_EXPORT NSMenuItem : public NSObject {
    PLIX_CLASS(NSMenuItem, NSObject);

public:
    NSMenuItem();
    ~NSMenuItem() override;
    bool init();
    bool init(std::string_view title, Selector action = {}, std::string_view keyEquivalent = {});
    /// The target is not archived.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;
    static Ref<NSMenuItem> separatorItem();

    /// A line between items, which can't be chosen.
    bool isSeparatorItem() const { return m_isSeparator; }
    /// Null while it is in none.
    NSMenu* menu() const { return m_menu; }
    /// For the menu that takes it in or lets it go.
    void setMenu(NSMenu* menu) { m_menu = menu; }

    // What it shows.
    std::string const& title() const { return m_title; }
    virtual void setTitle(std::string_view);
    /// Null for the title in the menu's font.
    NSAttributedString* attributedTitle() const;
    void setAttributedTitle(Ref<NSAttributedString> const&);
    NSImage* image() const;
    void setImage(Ref<NSImage> const&);
    std::string const& toolTip() const { return m_toolTip; }
    void setToolTip(std::string text) { m_toolTip = std::move(text); }
    /// 0 to 15.
    int indentationLevel() const { return m_indentationLevel; }
    void setIndentationLevel(int);

    // Its mark, whether it can be chosen, and what the application keeps with it.
    int state() const { return m_state; }
    virtual void setState(int);
    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool);
    /// A hidden item takes no room and cannot be chosen.
    bool isHidden() const { return m_isHidden; }
    void setHidden(bool);
    long tag() const { return m_tag; }
    void setTag(long tag) { m_tag = tag; }
    ObjectValue const& representedObject() const { return m_representedObject; }
    void setRepresentedObject(ObjectValue object) { m_representedObject = std::move(object); }

    // The menu that it opens.
    bool hasSubmenu() const { return m_submenu != nullptr; }
    NSMenu* submenu() const;
    void setSubmenu(Ref<NSMenu> const&);

    /// A character as it is typed; empty for none. Its modifiers are the shortcut modifier at first.
    std::string const& keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(std::string_view);
    unsigned keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(unsigned mask);

    /// Held weakly. Null: the action goes along the responder chain.
    NSObject* target() const { return m_target.get(); }
    void setTarget(Ref<NSObject> const&);
    Selector action() const { return m_action; }
    void setAction(Selector);
    using ActionFunction = std::function<void(NSObject* sender)>;
    /// In the action's place, called as long as the target lives where there is one; null for none.
    void setActionFunction(Ref<NSObject> const& target, ActionFunction);
    void setActionFunction(ActionFunction function) { setActionFunction(nullptr, std::move(function)); }
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    void setTarget(T& target, Operation operation)
    {
        setActionFunction(&target, [&target, operation](NSObject* sender) {
            if constexpr (std::is_invocable_v<Operation, T&, NSObject*>)
                (target.*operation)(sender);
            else
                (target.*operation)();
        });
    }
    bool hasAction() const { return m_action || m_function; }
    /// Sends the action with the item as sender. False where there is none, or nobody took it.
    bool sendAction();
    /// Whether somebody would take the action now, and says so.
    bool isValid();

private:
    void changed();
    void copyStateTo(NSObject& fresh) const override;

    NSMenu* m_menu { nullptr };
    std::string m_title;
    Ref<NSAttributedString> m_attributedTitle;
    Ref<NSImage> m_image;
    std::string m_toolTip;
    std::string m_keyEquivalent;
    unsigned m_keyEquivalentModifierMask;
    int m_indentationLevel { 0 };
    int m_state { NSOffState };
    long m_tag { 0 };
    ObjectValue m_representedObject;
    Ref<NSMenu> m_submenu;
    Weak<NSObject> m_target;
    Selector m_action;
    ActionFunction m_function;
    bool m_isEnabled { true };
    bool m_isSeparator { false };
    bool m_isHidden { false };
};

}
