// The port: what the controls ask of a window system and of the machine, and nothing more.
#pragma once

#include "widgets/appearance.h"
#include "widgets/regional.h"
#include "widgets/registry.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace obk {

// A window's handle in the window system's own numbering; 0 is none.
using NativeWindow = uintptr_t;

class FileSystem;
class SurfaceClient;
class SurfacePeer;
struct SurfacePlacement;

class Clock {
public:
    virtual ~Clock() = default;
    // Milliseconds since the system started; wraps from 2^31 - 1 to -2^31.
    virtual int32_t tickCount() = 0;
    // The current date in the user's time zone.
    virtual std::chrono::year_month_day today() = 0;
    virtual DateForms dateForms() = 0;
};

// Calls back every interval until stopped; stopped when it goes.
class TimerPeer {
public:
    virtual ~TimerPeer() = default;
    // At least 1 ms; starting a running timer begins a new period.
    virtual void start(std::chrono::milliseconds interval) = 0;
    virtual void stop() = 0;
};

// What a peer calls when the window system speaks to it. The holder it answers keeps the outermost control
// alive until the call has returned; a null one means that the control is going, and nothing more is called.
using KeepAlive = std::function<std::shared_ptr<void>()>;

// What the system's colour chooser is asked for.
struct ColourQuestion {
    Rgb start;   // the colour it shows at first
    bool full;   // opened with all its parts, not only its swatches
    Text title;  // empty: the system's own
};

// One line of a pop-up menu.
struct MenuItem {
    Text caption;  // "&" stands before the access key; an empty caption makes a separator
    bool enabled = true;
    bool checked = false;
};

class Platform {
public:
    virtual ~Platform() = default;

    // What a control has found out once, which does not change while a program runs.
    std::optional<Text> systemVersion;

    virtual Clock& clock() = 0;
    virtual Registry& registry() = 0;
    virtual Appearance& appearance() = 0;
    // As they are set now.
    virtual RegionalFormats regionalFormats() = 0;
    // Appends what a text is compared by, byte by byte, in the order of the user's alphabet: every character
    // counts, hyphens and blanks among them.
    virtual void appendSortKey(TextView text, std::string& key) = 0;
    virtual FileSystem& files() = 0;
    virtual std::unique_ptr<TimerPeer> createTimer(KeepAlive keepAlive, std::function<void()> tick) = 0;
    // Null when the system refuses.
    virtual std::unique_ptr<SurfacePeer> createSurface(SurfaceClient& client,
                                                       const SurfacePlacement& placement) = 0;
    // The system's colour chooser above the window that `owner` is in; returns when it has been closed.
    // Nothing when it was cancelled or could not be shown. Colours that a person mixes in it are offered
    // again as long as the platform lives.
    virtual std::optional<Rgb> chooseColour(NativeWindow owner, const ColourQuestion& question) = 0;
    // A menu of the system that belongs to the window `owner`, below `beside` (on the screen) or where there
    // is room; returns when it has been closed. The position of the chosen item; nothing when it was closed
    // without a choice or could not be shown. It takes the mouse capture, and anything may happen meanwhile.
    virtual std::optional<size_t> chooseFromMenu(NativeWindow owner, std::span<const MenuItem> items,
                                                 const PixelRect& beside) = 0;
    // Does some work. Whether anyone on this thread has opened a menu meanwhile.
    virtual bool opensMenu(const std::function<void()>& work) = 0;
    // Puts a text on the clipboard in place of what is there. False, and nothing changed, when another
    // program holds it.
    virtual bool putOnClipboard(NativeWindow owner, TextView text) = 0;
    // The text on the clipboard; nothing when there is none, and when another program holds it.
    virtual std::optional<Text> textOnClipboard(NativeWindow owner) = 0;
    // Drags a text from where the left button is held to wherever a person lets it go, or gives up; what was
    // done with it, in the numbering of drop_effect. It takes the mouse capture, and anything may happen
    // meanwhile. At once where the host's thread is not ready for that.
    virtual int32_t dragText(TextView text) = 0;
    // Shows the wait cursor, also over the host's windows, until it is told false. Not nested.
    virtual void showWaitCursor(bool shown) = 0;
};

}  // namespace obk
