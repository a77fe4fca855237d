#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace plix {

template <typename Signature> class FunctionRef;

/// A function that is called before the callee returns: refers to what the caller passes, holds and allocates nothing.
template <typename Result, typename... Arguments> class FunctionRef<Result(Arguments...)> {
public:
    template <typename Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, FunctionRef> && std::is_invocable_r_v<Result, Function&, Arguments...>)
        FunctionRef(Function&& function)
    {
        using Stored = std::remove_reference_t<Function>;
        if constexpr (std::is_function_v<Stored>) {
            m_function = reinterpret_cast<void*>(&function);
            m_call = [](void* called, Arguments... arguments) -> Result {
                return reinterpret_cast<Stored*>(called)(std::forward<Arguments>(arguments)...);
            };
        } else {
            m_function = const_cast<void*>(static_cast<void const*>(std::addressof(function)));
            m_call = [](void* called, Arguments... arguments) -> Result {
                return (*static_cast<Stored*>(called))(std::forward<Arguments>(arguments)...);
            };
        }
    }

    Result operator()(Arguments... arguments) const { return m_call(m_function, std::forward<Arguments>(arguments)...); }

private:
    void* m_function;
    Result (*m_call)(void*, Arguments...);
};

}
