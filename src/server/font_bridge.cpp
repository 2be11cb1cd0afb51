#include "server/font_bridge.h"

#include "com/automation.h"
#include "com/com_object.h"
#include "server/entry_point.h"
#include "server/module.h"
#include "server/system_text.h"

#include <ocidl.h>
#include <olectl.h>

#include <cmath>

namespace obk::server {

namespace {

constexpr double currencyUnit = 10000;

FontDescription describe(IFont& font) {
    FontDescription description;
    Bstr name;
    if (SUCCEEDED(font.get_Name(name.put()))) description.name = viewOfBstr(name.get());
    CY size{};
    if (SUCCEEDED(font.get_Size(&size))) description.size = static_cast<double>(size.int64) / currencyUnit;
    SHORT number = 0;
    if (SUCCEEDED(font.get_Weight(&number))) description.weight = number;
    if (SUCCEEDED(font.get_Charset(&number))) description.charset = number;
    BOOL flag = FALSE;
    if (SUCCEEDED(font.get_Italic(&flag))) description.italic = flag != FALSE;
    if (SUCCEEDED(font.get_Underline(&flag))) description.underline = flag != FALSE;
    if (SUCCEEDED(font.get_Strikethrough(&flag))) description.strikethrough = flag != FALSE;
    return description;
}

CY currency(double size) {
    CY result{};
    result.int64 = std::llround(size * currencyUnit);
    return result;
}

// Only what differs: each put is a change that the font tells everybody about.
void apply(const FontDescription& wanted, IFont& font) {
    const FontDescription present = describe(font);
    if (wanted.name != present.name) font.put_Name(Bstr(toWide(wanted.name)).get());
    if (wanted.size != present.size) font.put_Size(currency(wanted.size));
    if (wanted.weight != present.weight) font.put_Weight(wanted.weight);
    if (wanted.charset != present.charset) font.put_Charset(wanted.charset);
    if (wanted.italic != present.italic) font.put_Italic(wanted.italic);
    if (wanted.underline != present.underline) font.put_Underline(wanted.underline);
    if (wanted.strikethrough != present.strikethrough) font.put_Strikethrough(wanted.strikethrough);
}

// Hears of the font object's changes. The font object may keep it longer than the shared font lives.
class FontListener final : public ComObject<IPropertyNotifySink> {
public:
    explicit FontListener(ComPtr<IFont> object) : ComObject(module::presence()), object_(std::move(object)) {}

    void follow(const FontRef& font) { font_ = font; }
    void stop() {
        font_.reset();
        object_.reset();
    }
    bool quiet = false;  // while the change is our own

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override {
        return entryPoint([this] {
            const FontRef font = font_.lock();
            const ComPtr<IFont> object = object_;
            const ComPtr<FontListener> self(this);
            if (!font || !object || quiet) return S_OK;
            quiet = true;
            font->setDescription(describe(*object));
            quiet = false;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

private:
    ComPtr<IFont> object_;
    std::weak_ptr<SharedFont> font_;
};

class FontCounterpart final : public SharedFont::Counterpart {
public:
    explicit FontCounterpart(ComPtr<IFont> object)
        : object_(std::move(object)), listener_(new FontListener(object_)) {
        const auto points = object_.query<IConnectionPointContainer>();
        if (points && SUCCEEDED(points->FindConnectionPoint(__uuidof(IPropertyNotifySink), point_.put())) &&
            FAILED(point_->Advise(listener_.get(), &cookie_)))
            point_.reset();
    }
    ~FontCounterpart() override {
        listener_->stop();
        if (point_) point_->Unadvise(cookie_);
    }
    void follow(const FontRef& font) { listener_->follow(font); }
    ComPtr<IDispatch> dispatch() const { return object_.query<IDispatch>(); }

    void apply(const FontDescription& description) override {
        if (listener_->quiet) return;  // the change came from there
        const ComPtr<FontListener> listener = listener_;
        const ComPtr<IFont> object = object_;
        listener->quiet = true;
        server::apply(description, *object);
        listener->quiet = false;
    }

private:
    ComPtr<IFont> object_;
    ComPtr<FontListener> listener_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

void join(const FontRef& font, ComPtr<IFont> object) {
    auto counterpart = std::make_unique<FontCounterpart>(std::move(object));
    counterpart->follow(font);
    font->setCounterpart(std::move(counterpart));
}

}  // namespace

FontRef fontFromObject(IUnknown* object) {
    auto source = query<IFont>(object);
    if (!source) return nullptr;
    auto font = std::make_shared<SharedFont>(describe(*source));
    join(font, std::move(source));
    return font;
}

ComPtr<IDispatch> objectFromFont(const FontRef& font) {
    if (!font) return nullptr;
    // Nobody but this bridge gives a font of this process a counterpart.
    if (const auto* counterpart = static_cast<FontCounterpart*>(font->counterpart()))
        return counterpart->dispatch();
    const FontDescription& description = font->description();
    FONTDESC wanted{};
    wanted.cbSizeofstruct = sizeof wanted;
    std::wstring name = toWide(description.name);
    wanted.lpstrName = name.data();
    wanted.cySize = currency(description.size);
    wanted.sWeight = description.weight;
    wanted.sCharset = description.charset;
    wanted.fItalic = description.italic;
    wanted.fUnderline = description.underline;
    wanted.fStrikethrough = description.strikethrough;
    ComPtr<IFont> object;
    if (FAILED(OleCreateFontIndirect(&wanted, __uuidof(IFont), object.putVoid()))) return nullptr;
    join(font, object);
    return object.query<IDispatch>();
}

}  // namespace obk::server
