#pragma once

/// What a host of its own needs: one that puts windows into another toolkit's widgets, or a program that runs without a display.
/// The doors of the machine are abstract here; the headless host is one that keeps them in memory. Applications need plix.h only.

#include <plix/platform/appkit/EmbeddedTree.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/event_source.h>
#include <plix/platform/foundation/surroundings.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/Media.h>
#include <plix/platform/host/embedding/EmbeddedWindow.h>
#include <plix/platform/host/embedding/EmbeddingDisplay.h>
#include <plix/platform/host/embedding/EmbeddingEvents.h>
#include <plix/platform/host/embedding/toolkit_keys.h>
#include <plix/platform/host/headless/HeadlessHost.h>
