#pragma once

#include <map>
#include <string>

namespace soak {

/// A folder with folders and files of many kinds in it, which can be put back to what it was. Gone when the object is.
class SampleFolder {
public:
    SampleFolder();
    ~SampleFolder();
    SampleFolder(SampleFolder const&) = delete;
    SampleFolder& operator=(SampleFolder const&) = delete;

    std::string const& path() const { return m_path; }
    /// Where a program may keep its settings; not in the folder that is shown.
    std::string homeFolder() const { return m_home; }
    /// Removes what has come in, and writes what has gone.
    void restore() const;

private:
    std::string m_home;
    std::string m_path;
    std::map<std::string, std::string> m_files; ///< contents by relative path
};

}
