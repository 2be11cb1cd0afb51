// How a control is placed: in which order it is told what, in which mode, with which state.
#pragma once

#include <ocidl.h>

#include <string>

namespace obk::container {

// When the control is told its site: as its status bits ask, or against them.
enum class SiteOrder { asControlAsks, beforeState, afterState, never };
enum class SiteMode { run, design };
enum class SiteState { empty, loaded, inPlaceActive, uiActive };

struct SiteSettings {
    std::wstring name;  // the ambient display name
    SiteOrder order = SiteOrder::asControlAsks;
    SiteMode mode = SiteMode::run;
    // The window of one document among several in the frame, null when the frame is the document. Not owned:
    // it outlives the site.
    IOleInPlaceUIWindow* document = nullptr;
};

// Where a new control's state comes from; with nothing given it is freshly placed (InitNew).
struct InitialState {
    IPropertyBag* bag = nullptr;
    IStream* stream = nullptr;
    IStorage* storage = nullptr;
};

}  // namespace obk::container
