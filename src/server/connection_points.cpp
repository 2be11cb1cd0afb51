#include "server/connection_points.h"

#include "base/left_undone.h"
#include "platform/win32/text_conversion.h"

#include "server/enumerator.h"
#include "server/system_text.h"
#include "server/variant_value.h"

#include <olectl.h>

#include <algorithm>
#include <array>

namespace obk::server {

namespace {

struct PointItem {
    ComPtr<IConnectionPoint> point;
    IConnectionPoint* give() const { return point.share(); }
};

// An event's arguments as sinks see them: in reverse order, and by reference where the event says so.
class EventArguments {
public:
    EventArguments(const Member& event, std::span<Value> values)
        : event_(event), values_(values), stored_(values.size()), passed_(values.size()) {
        for (size_t at = 0; at < values.size(); ++at) {
            VARIANT& stored = stored_[at];
            VARIANT& passed = passed_[values.size() - 1 - at];
            variantFromValue(values[at], stored);
            passed = stored;
            if (!event.parameters[at].byReference) continue;
            V_VT(&passed) = static_cast<VARTYPE>(V_VT(&stored) | VT_BYREF);
            V_BYREF(&passed) = &V_NONE(&stored);
        }
    }
    DISPPARAMS parameters() { return {passed_.data(), nullptr, static_cast<UINT>(passed_.size()), 0}; }

    // Takes over what has been changed, and nothing else.
    void readBack() {
        for (size_t at = 0; at < values_.size(); ++at) {
            if (!event_.parameters[at].byReference) continue;
            Value changed;
            if (SUCCEEDED(valueFromVariant(stored_[at], typeOf(values_[at]), changed)) &&
                changed != values_[at])
                values_[at] = std::move(changed);
        }
    }

private:
    const Member& event_;
    std::span<Value> values_;
    std::vector<OwnedVariant> stored_;
    std::vector<VARIANT> passed_;  // refers to what is stored
};

// A handler's error ends with the handler. That there is none for an event is no error.
void tellFailed(const Member& event, HRESULT answer) {
    const bool none = answer == DISP_E_MEMBERNOTFOUND || answer == E_NOTIMPL;
    if (none || !undoneIsObserved()) return;
    const Text reason = win32::systemReason(static_cast<uint32_t>(answer));
    tellUndone({.kind = LeftUndone::Kind::handler, .subject = event.name, .reason = reason});
}

}  // namespace

bool ConnectionPoint::holds(DWORD cookie) const {
    return std::any_of(sinks_.begin(), sinks_.end(),
                       [cookie](const Sink& sink) { return sink.cookie == cookie; });
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** result) {
    if (!result) return E_POINTER;
    const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IConnectionPoint);
    *result = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
    if (!id) return E_POINTER;
    *id = id_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = &points_;
    points_.AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie) *cookie = 0;
    if (!sink || !cookie) return E_POINTER;
    return entryPoint([&] {
        ComPtr<IUnknown> object;
        if (FAILED(sink->QueryInterface(id_, object.putVoid()))) {
            object.detach();
            // A sink for events may know them only as late-bound calls.
            if (dispatches_) object = query<IDispatch>(sink).get();
            if (!object) return CONNECT_E_CANNOTCONNECT;
        }
        sinks_.push_back({++lastCookie_, std::move(object)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::find_if(sinks_.begin(), sinks_.end(),
                                    [cookie](const Sink& sink) { return sink.cookie == cookie; });
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const Sink gone = std::move(*found);  // released when the list is in order again
    sinks_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    return Enumerator<IEnumConnections, CONNECTDATA, Sink>::create(sinks_, connections);
}

ConnectionPoints::ConnectionPoints(ControlObject& object, const ControlTable& table)
    : Part(object),
      events_(*this, identity_, systemGuid(table.eventInterfaceId), true),
      notifications_(*this, identity_, __uuidof(IPropertyNotifySink), false) {}

void ConnectionPoints::raise(const Member& event, std::span<Value> arguments) {
    if (!events_.connected() || arguments.size() != event.parameters.size()) return;
    EventArguments passed(event, arguments);
    events_.each<IDispatch>([&](IDispatch& sink) {
        DISPPARAMS parameters = passed.parameters();
        OwnedVariant ignored;
        const HRESULT answer = sink.Invoke(event.number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                           &parameters, &ignored, nullptr, nullptr);
        if (FAILED(answer)) tellFailed(event, answer);
    });
    passed.readBack();
}

void ConnectionPoints::propertyChanged(DISPID id) {
    if (!notifications_.connected()) return;
    notifications_.each<IPropertyNotifySink>([id](IPropertyNotifySink& sink) { sink.OnChanged(id); });
}

void ConnectionPoints::disconnectAll() {
    events_.disconnectAll();
    notifications_.disconnectAll();
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return perform([&] {
        std::vector<PointItem> items{{ComPtr<IConnectionPoint>(&events_)},
                                     {ComPtr<IConnectionPoint>(&notifications_)}};
        return Enumerator<IEnumConnectionPoints, IConnectionPoint*, PointItem>::create(std::move(items),
                                                                                       points);
    });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : {&events_, &notifications_}) {
        if (candidate->id() != id) continue;
        candidate->AddRef();
        *point = candidate;
        return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
}

}  // namespace obk::server
