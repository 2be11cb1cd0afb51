// A control drawn into a device context, on a screen, on paper or in a metafile.
#pragma once

#include <windows.h>

namespace obk::server {

class ControlObject;

// Restores a device context, mapping and clip included.
class SavedContext {
public:
    explicit SavedContext(HDC context) : context_(context), state_(SaveDC(context)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    ~SavedContext() { RestoreDC(context_, state_); }

private:
    HDC context_;
    int state_;
};

// Draws the whole control into `bounds`, in the context's pixels; the context's mapping is changed.
void paintControl(ControlObject& object, HDC context, const RECT& bounds);

// Both give the look of now, at the control's own size, to the caller to delete; null when the system has no
// room for it.
HENHMETAFILE recordPicture(ControlObject& object);
HMETAFILE recordOldPicture(ControlObject& object);

}  // namespace obk::server
