#pragma once

namespace plix {

/// Whether the machine has a device that plays sounds, with or without a server.
bool hasSoundCard();

}
