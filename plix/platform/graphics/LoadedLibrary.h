#pragma once

namespace plix {

/// A C library that is loaded when it is first wanted and not before, since starting a program costs the time and memory of every
/// library that it is linked with. It stays loaded.
class LoadedLibrary {
public:
    /// By the name that the system's loader knows; nothing is found in one that is not there.
    explicit LoadedLibrary(char const* name);

    /// Sets a pointer to the function of that name.
    template <typename Function> void find(Function& function, char const* name)
    {
        function = reinterpret_cast<Function>(symbol(name));
        m_isComplete = m_isComplete && function;
    }
    /// Whether all that was looked for was found.
    bool isComplete() const { return m_isComplete; }

private:
    void* symbol(char const* name) const;

    void* m_library { nullptr };
    bool m_isComplete { true };
};

}
