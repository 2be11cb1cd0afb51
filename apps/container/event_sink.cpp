#include "container/event_sink.h"

#include <olectl.h>

#include <algorithm>

#include "container/text.h"

namespace obk::container {

const VARIANT& EventCall::raw(size_t index) const {
    static const VARIANT none = {};
    // The protocol passes the last argument first.
    return index < parameters_.cArgs ? parameters_.rgvarg[parameters_.cArgs - 1 - index] : none;
}

HRESULT EventSink::connect(IUnknown* control) {
    disconnect();
    const EventInterface events = eventInterfaceOf(control);
    if (IsEqualIID(events.id, IID_NULL)) return CONNECT_E_NOCONNECTION;
    interfaceId_ = events.id;
    members_ = TypeMembers::of(nullptr, events.info.get()).events();
    return connection_.open(control, interfaceId_, this);
}

void EventSink::on(const std::wstring& name, Handler handler) {
    handlers_.push_back({name, DISPID_UNKNOWN, std::move(handler)});
}

void EventSink::on(DISPID number, Handler handler) {
    handlers_.push_back({{}, number, std::move(handler)});
}

size_t EventSink::count(std::wstring_view name) const {
    return static_cast<size_t>(
        std::count_if(journal_.begin(), journal_.end(),
                      [&](const EventRecord& record) { return sameName(record.name, name); }));
}

std::wstring EventSink::names() const {
    std::wstring text;
    for (const EventRecord& record : journal_) {
        text += text.empty() ? L"" : L" ";
        text += record.name;
    }
    return text;
}

std::wstring EventSink::nameOf(DISPID number) const {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [&](const Member& member) { return member.number == number; });
    return found == members_.end() ? std::wstring() : found->name;
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT EventSink::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                          UINT*) {
    // A handler may close the control and with it drop this sink.
    const ComPtr<EventSink> alive(this);
    DISPPARAMS none = {};
    const std::wstring name = nameOf(number);
    EventCall call(number, name, parameters ? *parameters : none);
    if (keepJournal_) {
        EventRecord record{number, name, {}};
        for (size_t index = 0; index < call.count(); ++index) record.arguments.push_back(call.value(index));
        journal_.push_back(std::move(record));
    }
    // Copies, because a handler may add further ones.
    std::vector<Handler> handlers = anyHandlers_;
    for (const auto& [wantedName, wantedNumber, handler] : handlers_) {
        if (wantedName.empty() ? wantedNumber == number : sameName(wantedName, name))
            handlers.push_back(handler);
    }
    for (const Handler& handler : handlers) handler(call);
    return call.answered();
}

void* EventSink::otherInterface(REFIID iid) {
    const bool events = !IsEqualIID(interfaceId_, IID_NULL) && IsEqualIID(iid, interfaceId_);
    return events ? static_cast<IDispatch*>(this) : nullptr;
}

}  // namespace obk::container
