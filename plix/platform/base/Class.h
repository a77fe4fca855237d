#pragma once

#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/Selector.h>

#include <functional>
#include <string>
#include <string_view>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>

namespace plix {

template <typename T> class ClassDescription;
struct WindowPlacement;

/// What is known of a class at run time: its name and superclass, how to make one, its outlets and actions by name, the
/// bundle that holds its resources. Interface files, archives, key bindings, copying and class look-up use it.
/// Descriptors live for the whole process.
class PLIX_EXPORT Class {
public:
    using Action = std::function<void(NSObject& receiver, NSObject* sender)>;
    /// Connects an object to an outlet; false where the object is of a class that the outlet does not take.
    using Outlet = std::function<bool(NSObject& receiver, NSObject* object)>;
    /// Sets a property; false where the value is of a kind that the property does not take.
    using Property = std::function<bool(NSObject& receiver, ObjectValue const& value)>;

    /// Called by PLIX_DESCRIBE.
    template <typename T>
    static Class const& describe(char const* name, Class const* superclass, void (*describer)(ClassDescription<T>&));

    Class(Class const&) = delete;
    Class& operator=(Class const&) = delete;

    // What it is called, and what it derives from.
    std::string const& name() const { return m_name; }
    Class const* superclass() const { return m_superclass; }
    std::type_index type() const { return m_type; }
    bool isSubclassOfClass(Class const&) const;

    /// A new object without init; null for an abstract class.
    Ref<NSObject> allocate() const { return m_allocate ? m_allocate() : nullptr; }
    /// A new object after its plain init(); null for an abstract class, or where init answers nil.
    Ref<NSObject> makeObject() const { return m_make ? m_make() : nullptr; }

    /// Whether the class can be read from an archive or an interface file: has an init(NSCoder&).
    bool readsFromCoder() const { return m_readFromCoder != nullptr; }
    /// Runs the class's init(NSCoder&) on a freshly allocated object of exactly this class; false where it answers nil.
    bool initObject(NSObject& fresh, NSCoder& coder) const { return m_readFromCoder && m_readFromCoder(fresh, coder); }

    /// Runs the content-rectangle init of a class of windows on a freshly allocated object of exactly this class, or the nearest
    /// one above that has it; false where it answers nil, and for what is no window.
    bool initWindow(NSObject& fresh, WindowPlacement const&) const;

    /// Looked up here and then in the superclasses; null where none describes it.
    Action const* action(Selector) const;
    Outlet const* outlet(std::string_view name) const;
    Property const* property(std::string_view name) const;
    /// Packs an object of this class as a delegate or data source with the sets of hooks that its description names.
    HookSource hookSource(NSObject&) const;
    /// The name of the bundle that holds the class's resources, inherited from the superclass; empty for the application's own.
    std::string const& bundleName() const;

    friend bool operator==(Class const& a, Class const& b) { return &a == &b; }

private:
    template <typename T> friend class ClassDescription;

    Class(char const* name, Class const* superclass, std::type_index type);
    void enterInRegistry() const;

    std::string m_name;
    Class const* m_superclass { nullptr };
    std::type_index m_type;
    std::function<Ref<NSObject>()> m_allocate;
    std::function<Ref<NSObject>()> m_make;
    bool (*m_readFromCoder)(NSObject&, NSCoder&) { nullptr };
    bool (*m_initWindow)(NSObject&, WindowPlacement const&) { nullptr };
    std::function<HookSource(NSObject&)> m_packHooks;
    std::unordered_map<Selector, Action> m_actions;
    std::unordered_map<std::string, Outlet> m_outlets;
    std::unordered_map<std::string, Property> m_properties;
    std::string m_bundleName;
};

/// The described class of that name, or null.
PLIX_EXPORT Class const* NSClassFromString(std::string_view name);
PLIX_EXPORT std::string const& NSStringFromClass(Class const&);

/// Handed to a class's describe(): says what interface files, key bindings and delegates may find in it.
template <typename T> class ClassDescription {
public:
    explicit ClassDescription(Class& described)
        : m_class(described)
    {
    }

    /// An action that takes its sender.
    template <typename C> ClassDescription& action(char const* selector, void (C::*function)(NSObject*))
    {
        m_class.m_actions[Selector(selector)]
            = [function](NSObject& receiver, NSObject* sender) { (static_cast<T&>(receiver).*function)(sender); };
        return *this;
    }
    /// An outlet with its setter; Value is the class of object that it takes.
    template <typename C, typename Value> ClassDescription& outlet(char const* name, void (C::*setter)(Ref<Value> const&))
    {
        return outlet<Value>(name, [setter](T& receiver, Ref<Value> const& value) { (receiver.*setter)(value); });
    }
    template <typename Value, typename Setter> ClassDescription& outlet(char const* name, Setter setter)
    {
        m_class.m_outlets[name] = [setter](NSObject& receiver, NSObject* object) {
            auto* value = dynamic_cast<Value*>(object);
            if (object && !value)
                return false;
            setter(static_cast<T&>(receiver), Ref<Value>(value));
            return true;
        };
        return *this;
    }
    /// An outlet that takes an object with hooks, packed by that object's own descriptor.
    template <typename C> ClassDescription& hookOutlet(char const* name, void (C::*taker)(HookSource const&))
    {
        m_class.m_outlets[name] = [taker](NSObject& receiver, NSObject* object) {
            (static_cast<T&>(receiver).*taker)(object ? object->isa().hookSource(*object) : HookSource {});
            return true;
        };
        return *this;
    }
    /// A property that interface files may set by name, with its setter: of a truth value, a number, a text, a Ref, or any value.
    template <typename C, typename Argument> ClassDescription& property(char const* name, void (C::*setter)(Argument))
    {
        m_class.m_properties[name] = [setter](NSObject& receiver, ObjectValue const& value) {
            return withValue<std::remove_cvref_t<Argument>>(
                value, [&](auto&& argument) { (static_cast<T&>(receiver).*setter)(std::forward<decltype(argument)>(argument)); });
        };
        return *this;
    }
    /// The same with a function of the receiver and the value that says whether it took it.
    template <typename Setter> ClassDescription& property(char const* name, Setter setter)
    {
        m_class.m_properties[name]
            = [setter](NSObject& receiver, ObjectValue const& value) -> bool { return setter(static_cast<T&>(receiver), value); };
        return *this;
    }
    /// The sets of hooks that an object of this class fills when an interface file connects it.
    template <typename... Sets> ClassDescription& fillsHooks()
    {
        m_class.m_packHooks = [](NSObject& object) { return HookSource::pack<Sets...>(Ref<T>(&static_cast<T&>(object))); };
        return *this;
    }
    ClassDescription& bundle(char const* name)
    {
        m_class.m_bundleName = name;
        return *this;
    }

private:
    template <typename Value, typename Take> static bool withValue(ObjectValue const& value, Take take)
    {
        if constexpr (std::is_same_v<Value, ObjectValue>) {
            take(value);
        } else if constexpr (std::is_same_v<Value, bool>) {
            if (!value.isNumber())
                return false;
            take(value.boolValue());
        } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
            if (!value.isNumber())
                return false;
            if constexpr (std::is_floating_point_v<Value>)
                take(static_cast<Value>(value.doubleValue()));
            else
                take(static_cast<Value>(value.integerValue()));
        } else if constexpr (std::is_convertible_v<std::string, Value>) {
            if (!value.isString())
                return false;
            take(*value.string());
        } else {
            auto object = value.as<std::remove_pointer_t<decltype(std::declval<Value>().get())>>();
            if (!object && !value.isNil())
                return false;
            take(Value(std::move(object)));
        }
        return true;
    }

    Class& m_class;
};

template <typename T>
Class const& Class::describe(char const* name, Class const* superclass, void (*describer)(ClassDescription<T>&))
{
    auto& described = *new Class(name, superclass, typeid(T));
    if constexpr (std::is_default_constructible_v<T>) {
        described.m_allocate = [] {
            auto object = Ref<T>::adopt(new T);
            object->adopt();
            return Ref<NSObject>(std::move(object));
        };
        if constexpr (
            requires(T & object) { object.init(); } || requires { T::instead(); })
            described.m_make = [] { return Ref<NSObject>(make<T>()); };
        if constexpr (requires(T & object, NSCoder & coder) { object.init(coder); })
            described.m_readFromCoder = [](NSObject& object, NSCoder& coder) { return static_cast<T&>(object).init(coder); };
        if constexpr (requires(T & object, WindowPlacement const& placement) { T::initWithPlacement(object, placement); })
            described.m_initWindow = [](NSObject& object, WindowPlacement const& placement) {
                return T::initWithPlacement(static_cast<T&>(object), placement);
            };
    }
    ClassDescription<T> description(described);
    describer(description);
    described.enterInRegistry();
    return described;
}

}

/// The one declaration that a described class needs, first in its body; PLIX_DESCRIBE in the source goes with it.
#define PLIX_CLASS(Type, Superclass)                                                                                               \
public:                                                                                                                            \
    using Base = Superclass;                                                                                                       \
    static ::plix::Class const& staticClass();                                                                                     \
    ::plix::Class const& describedClass() const override                                                                           \
    {                                                                                                                              \
        return staticClass();                                                                                                      \
    }                                                                                                                              \
    ::plix::Ref<Type> copy() const                                                                                                 \
    {                                                                                                                              \
        return ::plix::Ref<Type>::adopt(static_cast<Type*>(::plix::NSObject::copy().leak()));                                      \
    }                                                                                                                              \
                                                                                                                                   \
private:                                                                                                                           \
    static void describe(::plix::ClassDescription<Type>&)

/// Opens the body of a class's describe(description).
#define PLIX_DESCRIBE(Type)                                                                                                        \
    ::plix::Class const& Type::staticClass()                                                                                       \
    {                                                                                                                              \
        static auto const& s_class = ::plix::Class::describe<Type>(#Type, &Base::staticClass(), &Type::describe);                  \
        return s_class;                                                                                                            \
    }                                                                                                                              \
    void Type::describe([[maybe_unused]] ::plix::ClassDescription<Type>& description)
