#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/Forward.h>

#include <string_view>

namespace plix {

class Class;

/// An image out of the bundle of a class: the file of exactly that name, else the name with each of
/// NSImage::imageUnfilteredFileTypes in order; the first that loads. A new object at each call, unlike NSImage::imageNamed. Null
/// where nothing loads, and for a null class.
PLIX_EXPORT Ref<NSImage> imageNamed(std::string_view name, Class const*);
/// Looks the image "blah" up for the receiver's class and drops it.
PLIX_EXPORT void test(NSImage const&);

/// A QuickDraw picture of the image. There is no QuickDraw here: always null.
using PicHandle = void*;
PLIX_EXPORT PicHandle picHandle(NSImage const&);

}
