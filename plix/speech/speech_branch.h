#pragma once

namespace plix {

/// Whether the system version is one that has speech synthesizers, 10.3 or later; before, the older functions speak.
bool hasSpeechSynthesizers();

}
