#include "platform/win32/drop_target.h"

#include "com/com_object.h"
#include "platform/win32/dropped_data.h"
#include "platform/win32/native_object.h"
#include "platform/win32/surface_window.h"

namespace obk::win32 {

namespace {

static_assert(drop_effect::copy == DROPEFFECT_COPY && drop_effect::move == DROPEFFECT_MOVE &&
              drop_effect::link == DROPEFFECT_LINK);

int16_t shiftOf(DWORD keys) {
    return static_cast<int16_t>((keys & MK_SHIFT ? shift::shift : 0) |
                                (keys & MK_CONTROL ? shift::control : 0) | (keys & MK_ALT ? shift::alt : 0));
}

int16_t buttonOf(DWORD keys) {
    return keys & MK_LBUTTON   ? button::left
           : keys & MK_RBUTTON ? button::right
           : keys & MK_MBUTTON ? button::middle
                               : int16_t{0};
}

class DropTarget final : public ComObject<IDropTarget> {
public:
    DropTarget(const std::shared_ptr<SurfaceWindow>& surface, std::shared_ptr<void> moduleLock)
        : ComObject(moduleLock), surface_(surface), moduleLock_(std::move(moduleLock)) {}

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD keys, POINTL at, DWORD* effect) override {
        button_ = button::left;
        return DragOver(keys, at, effect);
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override {
        if (!effect) return E_POINTER;
        if (const int16_t held = buttonOf(keys)) button_ = held;
        const DWORD allowed = *effect;
        *effect = DROPEFFECT_NONE;
        try {
            const auto surface = surface_.lock();
            if (!surface || !surface->takesDrop({at.x, at.y})) return S_OK;
        } catch (...) {
            return S_OK;
        }
        for (const DWORD one : {DROPEFFECT_COPY, DROPEFFECT_MOVE, DROPEFFECT_LINK}) {
            if (*effect == DROPEFFECT_NONE) *effect = allowed & one;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override {
        if (!effect) return E_POINTER;
        const DWORD allowed = *effect;
        *effect = DROPEFFECT_NONE;
        try {
            const auto surface = surface_.lock();
            const POINT onScreen{at.x, at.y};
            if (!data || !surface || !surface->takesDrop(onScreen)) return S_OK;
            DropEvent event;
            event.data = std::make_shared<NativeObject>(createDroppedData(data, moduleLock_));
            event.effect = static_cast<int32_t>(allowed);
            event.button = button_;
            event.shift = shiftOf(keys);
            surface->drop(event, onScreen);
            *effect = static_cast<DWORD>(event.effect);
        } catch (...) {
            return S_OK;
        }
        return S_OK;
    }

private:
    std::weak_ptr<SurfaceWindow> surface_;
    const std::shared_ptr<void> moduleLock_;
    int16_t button_ = button::left;  // no button is held any more when it is let go
};

}  // namespace

ComPtr<IDropTarget> createDropTarget(const std::shared_ptr<SurfaceWindow>& surface,
                                     std::shared_ptr<void> moduleLock) {
    return new DropTarget(surface, std::move(moduleLock));
}

}  // namespace obk::win32
