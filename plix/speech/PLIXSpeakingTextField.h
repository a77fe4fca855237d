#pragma once

#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/export.h>

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace plix {

class NSSpeechSynthesizer;

/// A text field that speaks what is typed or pasted into it, where that occurs in a set of characters; "." and "," as words. What
/// is typed while speech is in progress waits its turn.
class PLIX_EXPORT PLIXSpeakingTextField : public NSTextField {
    PLIX_CLASS(PLIXSpeakingTextField, NSTextField);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    /// The one that all speaking fields share, in the default voice; made by the first call.
    static Ref<NSSpeechSynthesizer> speechSynthesizer();

    /// False at first.
    bool speaks() const { return m_speaks; }
    void setSpeaks(bool speaks) { m_speaks = speaks; }
    /// A text is spoken where it occurs in these, whole and as it is written. "" at first, and for nil: then nothing is.
    std::string const& speakableCharacters() const { return m_speakableCharacters; }
    void setSpeakableCharacters(std::optional<std::string_view>);

    /// Has a text wait its turn; ignored where it is nil.
    void addItemToSpeak(std::optional<std::string_view>);
    /// Speaks what has waited longest where nothing is being spoken, and looks again a tenth of a second later while anything
    /// waits.
    void speakNextItem(NSObject* sender);

    // NSTextField:
    bool shouldChangeTextInRange(NSTextView&, NSRange, std::string_view replacement) override;

private:
    void speakFirstItem();

    std::string m_speakableCharacters;
    std::deque<std::string> m_itemsToSpeak;
    bool m_speaks { false };
};

}
