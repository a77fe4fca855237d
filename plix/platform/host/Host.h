#pragma once

#include <plix/platform/base/export.h>

#include <memory>
#include <string_view>

namespace plix {

class Audio;
class Clipboard;
class Display;
class EventSource;
class Media;
class Speech;

/// The one door to the machine. A back end makes one of these; it also installs its clock and its event source while it lives.
/// Services that a later back end adds are further doors here, each of which may be missing (null).
class PLIX_EXPORT Host {
public:
    virtual ~Host() = default;
    // What it is called, and the services that each machine has.
    virtual std::string_view name() const = 0;
    virtual Display& display() = 0;
    virtual Clipboard& clipboard() = 0;
    virtual EventSource& events() = 0;
    // Services that a machine may lack; null then.
    virtual Speech* speech() { return nullptr; }
    virtual Audio* audio() { return nullptr; }
    virtual Media* media() { return nullptr; }
};

/// The host in use. Chosen at the first call: the environment's PLIX_HOST ("headless" or "desktop"), else desktop where it is built
/// in and a display answers, else headless.
PLIX_EXPORT Host& host();
/// Puts another host in place of the one in use and answers that; null has the choice made anew at the next call. For tests and for
/// embedding into another toolkit.
PLIX_EXPORT std::unique_ptr<Host> installHost(std::unique_ptr<Host>);

}
