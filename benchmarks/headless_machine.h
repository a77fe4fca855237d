#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <memory>

namespace plix::bench {

/// A machine in memory as long as this lives; the application goes with it.
class Machine {
public:
    Machine() { installHost(std::make_unique<HeadlessHost>()); }
    ~Machine()
    {
        NSApp = nullptr;
        installHost(nullptr);
    }
    Machine(Machine const&) = delete;
    Machine& operator=(Machine const&) = delete;
};

}
