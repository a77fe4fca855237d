#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// What a change does to the count of changes that were not saved.
enum NSDocumentChangeType : int { NSChangeDone = 0, NSChangeUndone = 1, NSChangeCleared = 2 };

/// Something that a person works on, shown in windows by its window controllers, which it holds.
class PLIX_EXPORT NSDocument : public NSObject {
    PLIX_CLASS(NSDocument, NSObject);

public:
    NSDocument();
    ~NSDocument() override;
    bool init() { return true; }

    // Its windows.
    std::vector<Ref<NSWindowController>> const& windowControllers() const { return m_windowControllers; }
    virtual void addWindowController(NSWindowController&);
    virtual void removeWindowController(NSWindowController&);
    /// Overridden to make the document's window controllers.
    virtual void makeWindowControllers() { }
    virtual void showWindows();
    /// Closes the windows and leaves the document controller.
    virtual void close();

    // Its file, and whether there are changes that are not in it.
    std::string const& fileName() const { return m_fileName; }
    virtual void setFileName(std::string_view path);
    /// The file's name without its folder; "Untitled" without a file.
    virtual std::string displayName() const;
    bool isDocumentEdited() const { return m_changeCount != 0; }
    void updateChangeCount(NSDocumentChangeType);

private:
    std::vector<Ref<NSWindowController>> m_windowControllers;
    std::string m_fileName;
    long m_changeCount { 0 };
    bool m_isClosing { false };
};

}
