#include "InfoPanel.h"
#include "CSVTable.h"
#include "FactsView.h"
#include "IconView.h"
#include "csv_preview.h"
#include "file_jobs.h"
#include "video_headers.h"

#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace browser {

using namespace plix;

namespace {

constexpr float width = 400;
constexpr float margin = 16;
constexpr float iconSide = 48;
constexpr float previewHeight = 190;
constexpr double countInterval = 0.1;
constexpr std::size_t previewBytes = std::size_t { 1 } << 18;

/// A regular file that is open to be read; never waits for a pipe.
class OpenFile {
public:
    explicit OpenFile(std::string const& path)
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        struct stat status { };
        if (m_descriptor >= 0 && ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode))
            m_size = static_cast<std::uint64_t>(status.st_size);
    }
    ~OpenFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;

    /// 0 of what can't be read.
    std::uint64_t size() const { return m_size; }
    std::size_t readAt(std::uint64_t place, std::span<std::uint8_t> into) const
    {
        auto const count = ::pread(m_descriptor, into.data(), into.size(), static_cast<off_t>(place));
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

private:
    int m_descriptor;
    std::uint64_t m_size { 0 };
};

std::string extensionOf(std::string const& name)
{
    auto const dot = name.rfind('.');
    std::string extension = dot == std::string::npos ? "" : name.substr(dot + 1);
    for (auto& letter : extension)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return extension;
}

bool isSound(std::string const& extension)
{
    auto* const audio = host().audio();
    return audio && std::ranges::find(audio->fileTypes(), extension) != audio->fileTypes().end();
}

bool isVideo(std::string const& extension)
{
    static std::set<std::string> const extensions { "h264", "264", "avc", "mp4", "m4v", "mov" };
    return extensions.contains(extension);
}

std::vector<std::vector<std::string>> previewOf(std::string const& path)
{
    OpenFile const file(path);
    std::vector<std::uint8_t> bytes(std::min<std::uint64_t>(file.size(), previewBytes));
    bytes.resize(file.readAt(0, bytes));
    std::string const text(bytes.begin(), bytes.end());
    return csvRows(text, bytes.size() < file.size() ? CSVPart::beginning : CSVPart::whole);
}

}

Point topLeftBeside(Rect window, Size panel, Rect screen)
{
    static constexpr float gap = 8;
    float x = window.maxX() + gap;
    if (x + panel.width > screen.maxX() && window.x - gap - panel.width >= screen.x)
        x = window.x - gap - panel.width;
    x = std::max(screen.x, std::min(x, screen.maxX() - panel.width));
    float const y = std::min(screen.maxY(), std::max(window.maxY(), screen.y + panel.height));
    return { x, y };
}

PLIX_DESCRIBE(InfoPanel)
{
}

InfoPanel::InfoPanel() = default;
InfoPanel::~InfoPanel()
{
    stopCounting();
}

bool InfoPanel::init()
{
    m_panel = make<NSPanel>(
        Rect { 0, 0, width, 200 }, NSTitledWindowMask | NSClosableWindowMask | NSUtilityWindowMask, NSBackingStoreBuffered, false);
    m_panel->setReleasedWhenClosed(false);
    m_panel->setTitle("Info");
    auto& content = *m_panel->contentView();
    m_icon = make<IconView>(Rect { margin, 200 - margin - iconSide, iconSide, iconSide });
    m_icon->setAutoresizingMask(NSViewMinYMargin);
    content.addSubview(*m_icon);
    m_name = NSTextField::labelWithString("");
    m_name->setFont(NSFont::boldSystemFontOfSize(0));
    m_name->cell()->setLineBreakMode(NSLineBreakByTruncatingMiddle);
    m_name->setFrame({ 2 * margin + iconSide - 4, 200 - margin - iconSide / 2 - 9, width - 3 * margin - iconSide + 4, 18 });
    m_name->setAutoresizingMask(NSViewMinYMargin | NSViewWidthSizable);
    content.addSubview(*m_name);
    m_facts = make<FactsView>(Rect { margin, margin, width - 2 * margin, 0 });
    m_facts->setAutoresizingMask(NSViewMinYMargin | NSViewWidthSizable);
    content.addSubview(*m_facts);
    m_preview = make<CSVTable>();
    m_preview->scrollView().setFrame({ margin, margin, width - 2 * margin, previewHeight });
    m_preview->scrollView().setHidden(true);
    content.addSubview(m_preview->scrollView());
    NSNotificationCenter::defaultCenter().addObserver(
        *this, &InfoPanel::stopCounting, NSWindowWillCloseNotification, m_panel.get());
    return true;
}

bool InfoPanel::showsPreview() const
{
    return !m_preview->scrollView().isHidden();
}

void InfoPanel::show(FolderEntry const* entry, std::string const& folder)
{
    stopCounting();
    m_icon->showEntry(entry);
    m_name->setStringValue(entry ? entry->shownName : "Nothing is selected.");
    m_name->setToolTip(entry ? entry->shownName : "");
    char const* const home = std::getenv("HOME");
    m_facts->setFacts(entry ? factsOf(*entry, folder, home ? home : "") : std::vector<FileFact> {});
    m_preview->scrollView().setHidden(true);
    if (entry)
        addFacts(*entry, pathInFolder(folder, entry->name));
    fit();
}

void InfoPanel::addFacts(FolderEntry const& entry, std::string const& path)
{
    if (entry.kind == EntryKind::folder)
        return count(path);
    if (entry.kind != EntryKind::file)
        return;
    auto const extension = extensionOf(entry.name);
    if (isSound(extension)) {
        auto const sound = host().audio()->openSound(path);
        m_facts->setFact({ "Duration", sound ? durationText(sound->duration()) : "The file is no sound." });
    } else if (isVideo(extension)) {
        OpenFile const file(path);
        VideoFormat format;
        auto const readAt = [&](std::uint64_t place, std::span<std::uint8_t> into) { return file.readAt(place, into); };
        if (readVideoFormat(videoHeaders(file.size(), readAt), format)) {
            for (auto& fact : videoFacts(format))
                m_facts->setFact(std::move(fact));
        } else {
            m_facts->setFact({ "Video", "No H.264 headers were found." });
        }
    } else if (extension == "csv") {
        m_preview->setRows(previewOf(path));
        m_preview->scrollView().setHidden(false);
    }
}

// MARK: folders

void InfoPanel::count(std::string const& path)
{
    m_facts->setFact({ "Contents", "Counting …" });
    m_counting = std::make_unique<FileJob>([path](JobReport& report) { countPaths({ path }, report); },
        [weakly = Weak<InfoPanel>(*this)] {
            if (auto const info = weakly.ref()) {
                info->showCount();
                info->stopCounting();
            }
        });
    // A timer that calls an object holds it.
    m_countTimer = NSTimer::scheduledTimerWithTimeInterval(
        countInterval,
        [weakly = Weak<InfoPanel>(*this)](NSTimer&) {
            if (auto const info = weakly.ref())
                info->showCount();
        },
        true);
}

void InfoPanel::stopCounting()
{
    if (m_countTimer)
        m_countTimer->invalidate();
    m_countTimer = nullptr;
    m_counting = nullptr;
}

void InfoPanel::showCount()
{
    auto const progress = m_counting->report().progress();
    // The folder itself is counted too.
    auto const items = progress.items > 0 ? progress.items - 1 : 0;
    m_facts->setFact({ "Contents", items == 0 ? "Nothing" : countText(items) + ", " + exactSizeText(progress.bytes) });
}

// MARK: layout

// As high as what it shows; the upper edge stays where it is.
void InfoPanel::fit()
{
    float const facts = m_facts->frame().height;
    float const preview = showsPreview() ? previewHeight + margin : 0;
    float const height = iconSide + 3 * margin + facts + preview;
    auto frame = m_panel->frameRectForContentRect({ 0, 0, width, height });
    auto const before = m_panel->frame();
    frame.x = before.x;
    frame.y = before.y + before.height - frame.height;
    m_panel->setFrame(frame, true);
    m_facts->setFrame({ margin, margin + preview, width - 2 * margin, facts });
}

}
