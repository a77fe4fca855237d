#include <plix/platform/host/desktop/DesktopMedia.h>

#include <plix/platform/base/Handle.h>
#include <plix/platform/graphics/LoadedLibrary.h>

#include <algorithm>

#ifdef PLIX_MEDIA
#include <gst/gst.h>
#endif

namespace plix {

namespace {

/// A muxer as the registry has it.
struct Muxer {
    std::string name;
    std::string longName;
    std::string plugin;
    std::string mediaType;
    std::string variant;
};

#ifdef PLIX_MEDIA

std::string textOf(char const* text)
{
    return text ? text : "";
}

struct MediaLibrary {
    decltype(&gst_init_check) start { nullptr };
    decltype(&gst_element_factory_list_get_elements) elements { nullptr };
    decltype(&gst_plugin_feature_list_free) freeFeatures { nullptr };
    decltype(&gst_object_get_name) name { nullptr };
    decltype(&gst_plugin_feature_get_plugin_name) pluginName { nullptr };
    decltype(&gst_element_factory_get_metadata) metadata { nullptr };
    decltype(&gst_element_factory_get_static_pad_templates) padTemplates { nullptr };
    decltype(&gst_static_pad_template_get_caps) capsOf { nullptr };
    decltype(&gst_caps_get_size) capsSize { nullptr };
    decltype(&gst_caps_get_structure) structureAt { nullptr };
    decltype(&gst_structure_get_name) structureName { nullptr };
    decltype(&gst_structure_get_string) structureText { nullptr };
    decltype(&gst_mini_object_unref) release { nullptr };
    decltype(&g_free) free { nullptr };
    bool isLoaded { false };

    static MediaLibrary const& shared()
    {
        static MediaLibrary const s_library;
        return s_library;
    }

private:
    MediaLibrary()
    {
        LoadedLibrary library("libgstreamer-1.0.so.0");
        library.find(start, "gst_init_check");
        library.find(elements, "gst_element_factory_list_get_elements");
        library.find(freeFeatures, "gst_plugin_feature_list_free");
        library.find(name, "gst_object_get_name");
        library.find(pluginName, "gst_plugin_feature_get_plugin_name");
        library.find(metadata, "gst_element_factory_get_metadata");
        library.find(padTemplates, "gst_element_factory_get_static_pad_templates");
        library.find(capsOf, "gst_static_pad_template_get_caps");
        library.find(capsSize, "gst_caps_get_size");
        library.find(structureAt, "gst_caps_get_structure");
        library.find(structureName, "gst_structure_get_name");
        library.find(structureText, "gst_structure_get_string");
        library.find(release, "gst_mini_object_unref");
        library.find(free, "g_free");
        isLoaded = library.isComplete() && start(nullptr, nullptr, nullptr);
    }
};

/// What comes out of it, where that is told.
void addMediaType(Muxer& muxer, GstElementFactory* factory)
{
    auto const& library = MediaLibrary::shared();
    for (auto const* item = library.padTemplates(factory); item; item = item->next) {
        auto* const pad = static_cast<GstStaticPadTemplate*>(item->data);
        if (pad->direction != GST_PAD_SRC)
            continue;
        auto* const caps = library.capsOf(pad);
        if (!caps)
            continue;
        if (library.capsSize(caps) > 0) {
            auto const* const structure = library.structureAt(caps, 0);
            muxer.mediaType = textOf(library.structureName(structure));
            muxer.variant = textOf(library.structureText(structure, "variant"));
        }
        library.release(&caps->mini_object);
        return;
    }
}

std::vector<Muxer> installedMuxers()
{
    auto const& library = MediaLibrary::shared();
    std::vector<Muxer> muxers;
    if (!library.isLoaded)
        return muxers;
    auto* const features = library.elements(GST_ELEMENT_FACTORY_TYPE_MUXER, GST_RANK_NONE);
    for (auto const* item = features; item; item = item->next) {
        auto* const factory = static_cast<GstElementFactory*>(item->data);
        auto* const feature = static_cast<GstPluginFeature*>(item->data);
        auto* const name = library.name(static_cast<GstObject*>(item->data));
        Muxer muxer { textOf(name), textOf(library.metadata(factory, GST_ELEMENT_METADATA_LONGNAME)),
            textOf(library.pluginName(feature)), {}, {} };
        library.free(name);
        addMediaType(muxer, factory);
        muxers.push_back(std::move(muxer));
    }
    library.freeFeatures(features);
    return muxers;
}

#else

std::vector<Muxer> installedMuxers()
{
    return {};
}

#endif

}

bool DesktopMedia::isAvailable()
{
#ifdef PLIX_MEDIA
    return MediaLibrary::shared().isLoaded;
#else
    return false;
#endif
}

std::vector<DesktopMedia::Entry> const& DesktopMedia::entries()
{
    if (m_entries)
        return *m_entries;
    auto muxers = installedMuxers();
    std::ranges::sort(muxers, {}, &Muxer::name);
    m_entries.emplace();
    for (auto const& muxer : muxers) {
        auto const subtype = fileTypeForMediaType(muxer.mediaType, muxer.variant);
        auto reference = componentReference(muxer.name);
        while (std::ranges::find(*m_entries, reference, &Entry::reference) != m_entries->end())
            ++reference;
        ComponentDescription const description { movieExportType, subtype, fourCharCode(muxer.plugin), canMovieExportFiles, 0 };
        m_entries->push_back({ reference, { description, muxer.longName } });
    }
    return *m_entries;
}

std::vector<std::uint32_t> DesktopMedia::findComponents(ComponentDescription const& wanted)
{
    std::vector<std::uint32_t> found;
    for (auto const& entry : entries()) {
        if (matchesComponent(wanted, entry.component.description))
            found.push_back(entry.reference);
    }
    return found;
}

std::optional<Media::Component> DesktopMedia::component(std::uint32_t reference)
{
    auto const found = std::ranges::find(entries(), reference, &Entry::reference);
    // What writes no known kind of file can't be told.
    if (found == entries().end() || found->component.description.subtype == 0)
        return {};
    return found->component;
}

}
