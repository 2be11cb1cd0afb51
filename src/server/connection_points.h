// Where hosts connect for a control's events and for changes of its properties.
#pragma once

#include "framework/control_table.h"

#include "com/com_ptr.h"
#include "server/part.h"

#include <ocidl.h>

#include <vector>

namespace obk::server {

class ConnectionPoints;

// The sinks of one outgoing interface. An object of its own, which lives as long as the control object.
class ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(ConnectionPoints& points, ObjectIdentity& identity, const IID& id, bool dispatches)
        : points_(points), identity_(identity), id_(id), dispatches_(dispatches) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    const IID& id() const { return id_; }
    bool connected() const { return !sinks_.empty(); }
    // Calls every sink that was connected when this began and still is. `Interface` is the point's own, or
    // IDispatch for one that dispatches.
    template <typename Interface, typename Call>
    void each(Call&& call) const {
        const std::vector<Sink> present = sinks_;
        for (const Sink& sink : present) {
            if (holds(sink.cookie)) call(*static_cast<Interface*>(sink.object.get()));
        }
    }
    void disconnectAll() { const auto gone = std::exchange(sinks_, {}); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return identity_.outer()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return identity_.outer()->Release(); }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

private:
    struct Sink {
        DWORD cookie;
        ComPtr<IUnknown> object;
        CONNECTDATA give() const { return {object.share(), cookie}; }
    };
    bool holds(DWORD cookie) const;

    ConnectionPoints& points_;
    ObjectIdentity& identity_;
    const IID id_;
    const bool dispatches_;
    std::vector<Sink> sinks_;
    DWORD lastCookie_ = 0;
};

class ConnectionPoints final : public Part<IConnectionPointContainer> {
public:
    ConnectionPoints(ControlObject& object, const ControlTable& table);

    // Raises an event at every sink; arguments by reference come back as the sinks changed them.
    void raise(const Member& event, std::span<Value> arguments);
    bool notifies() const { return notifications_.connected(); }
    // DISPID_UNKNOWN: more than one property changed, or one without a number.
    void propertyChanged(DISPID id);
    void disconnectAll();

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

private:
    ConnectionPoint events_;
    ConnectionPoint notifications_;
};

}  // namespace obk::server
