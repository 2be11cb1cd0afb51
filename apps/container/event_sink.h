// Receives a control's events, keeps a journal of them and lets handlers change their arguments.
#pragma once

#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

#include "com/com_object.h"
#include "container/connection.h"
#include "container/type_members.h"
#include "container/variant.h"

namespace obk::container {

// One event while it is being raised. Arguments are counted from 0 in declared order.
class EventCall {
public:
    EventCall(DISPID number, const std::wstring& name, DISPPARAMS& parameters)
        : number_(number), name_(name), parameters_(parameters) {}

    DISPID number() const { return number_; }
    // Empty when the control has no type information.
    const std::wstring& name() const { return name_; }
    size_t count() const { return parameters_.cArgs; }
    // The argument as it was passed; VT_EMPTY when there is none at that place.
    const VARIANT& raw(size_t index) const;
    // Its value now, with references resolved.
    Variant value(size_t index) const { return Variant::resolved(raw(index)); }
    // Changes an argument passed by reference; false for others.
    bool set(size_t index, const Variant& value) { return writeThrough(raw(index), value); }
    // What the control gets for an answer, S_OK unless a handler says otherwise.
    void answer(HRESULT result) { result_ = result; }
    HRESULT answered() const { return result_; }

private:
    DISPID number_;
    const std::wstring& name_;
    DISPPARAMS& parameters_;
    HRESULT result_ = S_OK;
};

struct EventRecord {
    DISPID number = DISPID_UNKNOWN;
    std::wstring name;
    std::vector<Variant> arguments;  // values on arrival, before any handler changed them
};

// The sink of one control. Journal and handlers live as long as the sink, also while disconnected.
class EventSink final : public ComObject<IDispatch> {
public:
    using Handler = std::function<void(EventCall&)>;

    // Subscribes to the control's default source interface. CONNECT_E_NOCONNECTION when it has none.
    HRESULT connect(IUnknown* control);
    void disconnect() { connection_.close(); }
    bool connected() const { return connection_.isOpen(); }

    // Handlers of one event run in the order of their addition, after those of `onAny`.
    void on(const std::wstring& name, Handler handler);
    void on(DISPID number, Handler handler);
    void onAny(Handler handler) { anyHandlers_.push_back(std::move(handler)); }

    const std::vector<EventRecord>& journal() const { return journal_; }
    void clearJournal() { journal_.clear(); }
    // How often the event has been raised since the journal was cleared.
    size_t count(std::wstring_view name) const;
    // The names in the journal, one after the other: "KeyDown KeyPress Change".
    std::wstring names() const;
    // Off for long runs, where a journal would only grow.
    void keepJournal(bool keep) { keepJournal_ = keep; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) override;

protected:
    void* otherInterface(REFIID iid) override;

private:
    std::wstring nameOf(DISPID number) const;

    IID interfaceId_ = IID_NULL;
    std::vector<Member> members_;
    struct Wanted {
        std::wstring name;  // empty: by number
        DISPID number;
        Handler handler;
    };
    Connection connection_;
    std::vector<Handler> anyHandlers_;
    std::vector<Wanted> handlers_;
    std::vector<EventRecord> journal_;
    bool keepJournal_ = true;
};

}  // namespace obk::container
