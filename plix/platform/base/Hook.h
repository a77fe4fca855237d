#pragma once

#include <plix/platform/base/Weak.h>

#include <functional>
#include <type_traits>
#include <utility>

namespace plix {

template <typename Signature> class Hook;

/// An operation that a delegate or data source may have. Set means: filled, and the object that it calls alive.
/// A lambda may be assigned to one.
template <typename Result, typename... Arguments> class Hook<Result(Arguments...)> {
public:
    Hook() = default;
    template <typename Function>
    requires(std::is_invocable_r_v<Result, Function&, Arguments...> && !std::is_same_v<std::decay_t<Function>, Hook>)
        Hook(Function function)
        : m_call(std::move(function))
    {
    }

    /// Calls host through the function, as long as the host lives.
    template <typename Host, typename Function> void bind(Host& host, Function function)
    {
        m_host = Weak<NSObject>(host);
        m_call
            = [&host, function](Arguments... arguments) -> Result { return function(host, std::forward<Arguments>(arguments)...); };
    }

    explicit operator bool() const { return m_call && (!m_host.wasSet() || m_host); }
    /// Keeps the host alive meanwhile. Where the hook is not set: nothing, zero or nil.
    Result operator()(Arguments... arguments) const
    {
        if (!*this)
            return Result();
        Ref<NSObject> const protector(m_host.get());
        auto const call = m_call; // the call may clear this very hook
        return call(std::forward<Arguments>(arguments)...);
    }

private:
    Weak<NSObject> m_host;
    std::function<Result(Arguments...)> m_call;
};

namespace detail {

template <typename Result, typename... Arguments, typename Host, typename Call, typename IsNamed>
void fillHook(Hook<Result(Arguments...)>& hook, Host& host, Call call, IsNamed)
{
    if constexpr (std::is_invocable_r_v<Result, Call, Host&, Arguments...>)
        hook.bind(host, call);
    else
        static_assert(!IsNamed {}.template operator()<Host>(), "a function of this hook's name takes or gives something else");
}

}

}

/// Inside a set's fillFrom(host): fills one hook where the host has a function of that name.
#define PLIX_FILL_HOOK(hook)                                                                                                       \
    ::plix::detail::fillHook(                                                                                                      \
        this->hook, host,                                                                                                          \
        []<typename PlixHost, typename... PlixArguments>(                                                                          \
            PlixHost & plixHost, PlixArguments && ... plixArguments) -> decltype(auto) requires requires {                         \
            plixHost.hook(std::forward<PlixArguments>(plixArguments)...);                                                          \
        } { return plixHost.hook(std::forward<PlixArguments>(plixArguments)...); },                                                \
        []<typename PlixHost>() {                                                                                                  \
            return requires                                                                                                        \
            {                                                                                                                      \
                &PlixHost::hook;                                                                                                   \
            };                                                                                                                     \
        })
