#include <plix/windows/nib_additions.h>

#include <plix/platform/appkit/NSNib.h>

#include <cstdint>
#include <utility>

namespace plix {

std::map<std::string, std::vector<Ref<NSObject>>>* PLIXNSNibAdditionsRememberedTopLevelObjects = nullptr;

static std::string keyOf(NSObject const* owner)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(owner));
}

bool instantiateNibWithOwner(NSNib& nib, NSObject* owner, bool remembers)
{
    if (!remembers)
        return nib.instantiateNibWithOwner(owner, nullptr);
    std::vector<Ref<NSObject>> objects;
    return instantiateNibWithOwner(nib, owner, &objects, true);
}

bool instantiateNibWithOwner(NSNib& nib, NSObject* owner, std::vector<Ref<NSObject>>* topLevelObjects, bool remembers)
{
    bool const isLoaded = nib.instantiateNibWithOwner(owner, topLevelObjects);
    if (isLoaded && topLevelObjects && remembers)
        rememberTopLevelObjects(*topLevelObjects, owner);
    return isLoaded;
}

void rememberTopLevelObjects(std::vector<Ref<NSObject>> const& objects, NSObject const* owner)
{
    if (!PLIXNSNibAdditionsRememberedTopLevelObjects)
        PLIXNSNibAdditionsRememberedTopLevelObjects = new std::map<std::string, std::vector<Ref<NSObject>>>;
    // They may be the very array that is there.
    auto kept = objects;
    // What was there goes last: its destructors may come back to the dictionary.
    auto const earlier = std::exchange((*PLIXNSNibAdditionsRememberedTopLevelObjects)[keyOf(owner)], std::move(kept));
}

void forgetTopLevelObjectsForOwner(NSObject const* owner)
{
    if (PLIXNSNibAdditionsRememberedTopLevelObjects)
        auto const forgotten = PLIXNSNibAdditionsRememberedTopLevelObjects->extract(keyOf(owner));
}

}
