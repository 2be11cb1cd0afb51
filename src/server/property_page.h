// A page of the system's property frame: the objects that it edits, and when what was changed is applied.
#pragma once

#include "com/com_object.h"
#include "framework/control_table.h"
#include "library/property_pages.h"
#include "platform/win32/colour_chooser.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <memory>
#include <vector>

namespace obk::server {

// What a page shows of the objects, and how it is edited. Its window is a child of the page's.
class PropertyPageContent {
public:
    virtual ~PropertyPageContent() = default;
    // The windows inside `page`; `size` is the page's, in its pixels.
    virtual void build(HWND page, SIZE size, HFONT font) = 0;
    virtual void command(int control, int notification) = 0;
    virtual bool draw(const DRAWITEMSTRUCT&) { return false; }
    // Shows what the objects have; what was changed and not applied is gone.
    virtual void read() = 0;
    // Puts what was changed. S_OK, or why the first value was refused; the others are put all the same.
    virtual HRESULT apply() = 0;
    virtual void select(DISPID) {}
};

class PropertyPage final : public ComObject<IPropertyPage2> {
public:
    // Pixels at 96 DPI.
    static constexpr SIZE size{340, 260};

    explicit PropertyPage(const PropertyPageFacts& facts);
    ~PropertyPage() override;

    // For the content: the control's table, null before there are objects, and their values. Objects that are
    // of another class than the first are left out.
    const ControlTable* table() const { return table_; }
    // The value that all objects have; none where they differ or do not answer.
    std::optional<Value> value(const Member& property) const;
    HRESULT put(const Member& property, const Value& value) const;
    void changed();
    // Asks the person, beginning with the present colour; none where that is cancelled.
    std::optional<Rgb> chooseColour(Rgb present) { return colours_.choose(window_, {present, true, {}}); }

    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override;
    HRESULT STDMETHODCALLTYPE Apply() override;
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR folder) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
    HRESULT STDMETHODCALLTYPE EditProperty(DISPID id) override;

protected:
    void* otherInterface(REFIID iid) override;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR reference);

    const PropertyPageFacts& facts_;
    std::unique_ptr<PropertyPageContent> content_;
    std::vector<ComPtr<IDispatch>> objects_;
    const ControlTable* table_ = nullptr;
    ComPtr<IPropertyPageSite> site_;
    HWND window_ = nullptr;
    HFONT font_ = nullptr;
    win32::ColourChooser colours_;
    bool dirty_ = false;
    bool reading_ = false;
};

// For the class factory; a page is aggregated by nobody.
HRESULT createPropertyPage(const PropertyPageFacts& facts, IUnknown* outer, REFIID iid, void** result);

// Of each kind.
std::unique_ptr<PropertyPageContent> propertyList(PropertyPage& page);
std::unique_ptr<PropertyPageContent> tabList(PropertyPage& page);
std::unique_ptr<PropertyPageContent> paletteList(PropertyPage& page);

// For the page whose content is built.
HWND addPageControl(HWND page, const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place,
                    int number, HFONT font);
std::wstring textOfWindow(HWND window);

}  // namespace obk::server
