#pragma once

#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/export.h>

#include <map>
#include <string>
#include <vector>

namespace plix {

class NSNib;

/// The top-level objects that are kept for owners, by the owner's address as a decimal number. Null until the first are. An entry
/// stays until it is forgotten, also when its owner is gone: an owner that loads with remembering forgets before it goes.
PLIX_EXPORT extern std::map<std::string, std::vector<Ref<NSObject>>>* PLIXNSNibAdditionsRememberedTopLevelObjects;

/// Instantiates; with the flag the top-level objects are remembered for the owner, without it that is the platform's form without
/// an array.
PLIX_EXPORT bool instantiateNibWithOwner(NSNib&, NSObject* owner, bool rememberTopLevelObjects);
/// A pointer is no flag: the form with an array and without the flag is NSNib's own.
template <typename T> bool instantiateNibWithOwner(NSNib&, NSObject* owner, T* topLevelObjects) = delete;
PLIX_EXPORT bool instantiateNibWithOwner(NSNib&, NSObject* owner, std::nullptr_t) = delete;
/// Instantiates with the top-level objects in the array, which may be null. They are remembered too where that succeeded, an array
/// was given and the flag is set. The array stays the caller's.
PLIX_EXPORT bool instantiateNibWithOwner(
    NSNib&, NSObject* owner, std::vector<Ref<NSObject>>* topLevelObjects, bool rememberTopLevelObjects);

/// Keeps the objects alive for the owner, in place of what was kept for it before.
PLIX_EXPORT void rememberTopLevelObjects(std::vector<Ref<NSObject>> const& objects, NSObject const* forOwner);
/// Lets them go. Nothing where nothing is remembered.
PLIX_EXPORT void forgetTopLevelObjectsForOwner(NSObject const* owner);

}
