#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/export.h>

namespace plix {

class PLIXProgressWindow;

/// The owner of the interface file "ProgressWindow" while that is loaded: it is handed the window.
class PLIX_EXPORT PLIXProgressWindowNIBLoader : public NSObject {
    PLIX_CLASS(PLIXProgressWindowNIBLoader, NSObject);

public:
    PLIXProgressWindowNIBLoader();
    ~PLIXProgressWindowNIBLoader() override;

    /// Null before the file is loaded.
    PLIXProgressWindow* progressWindow() const { return m_progressWindow.get(); }

private:
    Ref<PLIXProgressWindow> m_progressWindow;
};

}
