// The platform of real windows.
#pragma once

#include "platform/win32/appearance.h"
#include "platform/win32/colour_chooser.h"
#include "platform/win32/environment.h"
#include "platform/win32/file_system.h"
#include "platform/win32/machine.h"
#include "widgets/platform.h"
#include "widgets/surface_peer.h"

#include <windows.h>

#include <memory>

namespace obk::win32 {

// Serves the thread that made it; another thread makes its own. Timers tick while that thread runs a message
// loop. When the platform and all peers it made have gone, no window, class, timer or drawing object of
// theirs is left.
class Win32Platform final : public Platform {
public:
    // `module` is where window classes belong, and whose manifest (resource 2, if there is one) says which
    // common controls to use. `lockModule` keeps the module loaded for objects that other programs hold.
    explicit Win32Platform(HINSTANCE module, ModuleLock lockModule = {});

    Clock& clock() override { return clock_; }
    Registry& registry() override { return registry_; }
    Appearance& appearance() override { return appearance_; }
    RegionalFormats regionalFormats() override { return win32::regionalFormats(); }
    void appendSortKey(TextView text, std::string& key) override { win32::appendSortKey(text, key); }
    FileSystem& files() override { return files_; }
    std::unique_ptr<TimerPeer> createTimer(KeepAlive keepAlive, std::function<void()> tick) override;
    std::unique_ptr<SurfacePeer> createSurface(SurfaceClient& client,
                                               const SurfacePlacement& placement) override;
    std::optional<Rgb> chooseColour(NativeWindow owner, const ColourQuestion& question) override;
    std::optional<size_t> chooseFromMenu(NativeWindow owner, std::span<const MenuItem> items,
                                         const PixelRect& beside) override;
    bool opensMenu(const std::function<void()>& work) override;
    bool putOnClipboard(NativeWindow owner, TextView text) override;
    std::optional<Text> textOnClipboard(NativeWindow owner) override;
    int32_t dragText(TextView text) override;
    void showWaitCursor(bool shown) override;

    // For the host's calls of TranslateAccelerator: consults the control at most once for each message.
    KeyRouter& keys() { return environment_->keys(); }
    // For painting on a host's device context.
    FontCache& fonts() { return environment_->fonts(); }

private:
    std::shared_ptr<Environment> environment_;
    SystemClock clock_;
    SystemRegistry registry_;
    SystemAppearance appearance_;
    SystemFiles files_;
    ColourChooser colourChooser_;
    HCURSOR beforeWait_ = nullptr;
};

}  // namespace obk::win32
