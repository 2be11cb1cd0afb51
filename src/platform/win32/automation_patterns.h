// UI Automation's interfaces of what can be done with a thing, which the compiler's headers lack.
#pragma once

#include <oleacc.h>
#include <uiautomationcore.h>

namespace obk::win32 {

enum class ToggleState : int { off, on };
enum class ExpandCollapseState : int { collapsed, expanded };
enum class RowOrColumnMajor : int { rowMajor };
enum class ScrollAmount : int { largeDecrement, smallDecrement, noAmount, largeIncrement, smallIncrement };

// Of a window with other windows in it: gives one of those its place in the tree.
struct IHwndOverride : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetOverrideProviderForHwnd(HWND, IRawElementProviderSimple**) = 0;
};
struct IInvokeProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Invoke() = 0;
};
struct IToggleProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Toggle() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ToggleState(ToggleState* state) = 0;
};
struct IExpandCollapseProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Expand() = 0;
    virtual HRESULT STDMETHODCALLTYPE Collapse() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ExpandCollapseState(ExpandCollapseState* state) = 0;
};
struct IValueProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Value(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsReadOnly(BOOL* readOnly) = 0;
};
struct IRangeValueProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetValue(double value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Value(double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsReadOnly(BOOL* readOnly) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Maximum(double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Minimum(double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LargeChange(double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SmallChange(double* value) = 0;
};
struct ISelectionProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetSelection(SAFEARRAY** selected) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CanSelectMultiple(BOOL* can) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsSelectionRequired(BOOL* required) = 0;
};
struct ISelectionItemProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Select() = 0;
    virtual HRESULT STDMETHODCALLTYPE AddToSelection() = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveFromSelection() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsSelected(BOOL* selected) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SelectionContainer(IRawElementProviderSimple** container) = 0;
};
struct IScrollProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Scroll(ScrollAmount across, ScrollAmount down) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetScrollPercent(double across, double down) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HorizontalScrollPercent(double* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VerticalScrollPercent(double* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HorizontalViewSize(double* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VerticalViewSize(double* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HorizontallyScrollable(BOOL* can) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VerticallyScrollable(BOOL* can) = 0;
};
struct IScrollItemProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE ScrollIntoView() = 0;
};
struct IGridProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetItem(int row, int col, IRawElementProviderSimple** cell) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RowCount(int* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ColumnCount(int* count) = 0;
};
struct IGridItemProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Row(int* row) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Column(int* col) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RowSpan(int* span) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ColumnSpan(int* span) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ContainingGrid(IRawElementProviderSimple** grid) = 0;
};
struct ITableProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetRowHeaders(SAFEARRAY** headers) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetColumnHeaders(SAFEARRAY** headers) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RowOrColumnMajor(RowOrColumnMajor* major) = 0;
};
struct ITableItemProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetRowHeaderItems(SAFEARRAY** headers) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetColumnHeaderItems(SAFEARRAY** headers) = 0;
};

}  // namespace obk::win32

__CRT_UUID_DECL(obk::win32::IHwndOverride, 0x1d5df27c, 0x8947, 0x4425, 0xb8, 0xd9, 0x79, 0x78, 0x7b, 0xb4,
                0x60, 0xb8)
__CRT_UUID_DECL(obk::win32::IInvokeProvider, 0x54fcb24b, 0xe18e, 0x47a2, 0xb4, 0xd3, 0xec, 0xcb, 0xe7, 0x75,
                0x99, 0xa2)
__CRT_UUID_DECL(obk::win32::IToggleProvider, 0x56d00bd0, 0xc4f4, 0x433c, 0xa8, 0x36, 0x1a, 0x52, 0xa5, 0x7e,
                0x08, 0x92)
__CRT_UUID_DECL(obk::win32::IExpandCollapseProvider, 0xd847d3a5, 0xcab0, 0x4a98, 0x8c, 0x32, 0xec, 0xb4, 0x5c,
                0x59, 0xad, 0x24)
__CRT_UUID_DECL(obk::win32::IValueProvider, 0xc7935180, 0x6fb3, 0x4201, 0xb1, 0x74, 0x7d, 0xf7, 0x3a, 0xdb,
                0xf6, 0x4a)
__CRT_UUID_DECL(obk::win32::IRangeValueProvider, 0x36dc7aef, 0x33e6, 0x4691, 0xaf, 0xe1, 0x2b, 0xe7, 0x27,
                0x4b, 0x3d, 0x33)
__CRT_UUID_DECL(obk::win32::ISelectionProvider, 0xfb8b03af, 0x3bdf, 0x48d4, 0xbd, 0x36, 0x1a, 0x65, 0x79,
                0x3b, 0xe1, 0x68)
__CRT_UUID_DECL(obk::win32::ISelectionItemProvider, 0x2acad808, 0xb2d4, 0x452d, 0xa4, 0x07, 0x91, 0xff, 0x1a,
                0xd1, 0x67, 0xb2)
__CRT_UUID_DECL(obk::win32::IScrollProvider, 0xb38b8077, 0x1fc3, 0x42a5, 0x8c, 0xae, 0xd4, 0x0c, 0x22, 0x15,
                0x05, 0x5a)
__CRT_UUID_DECL(obk::win32::IScrollItemProvider, 0x2360c714, 0x4bf1, 0x4b26, 0xba, 0x65, 0x9b, 0x21, 0x31,
                0x61, 0x27, 0xeb)
__CRT_UUID_DECL(obk::win32::IGridProvider, 0xb17d6187, 0x0907, 0x464b, 0xa1, 0x68, 0x0e, 0xf1, 0x7a, 0x15,
                0x72, 0xb1)
__CRT_UUID_DECL(obk::win32::IGridItemProvider, 0xd02541f1, 0xfb81, 0x4d64, 0xae, 0x32, 0xf5, 0x20, 0xf8, 0xa6,
                0xdb, 0xd1)
__CRT_UUID_DECL(obk::win32::ITableProvider, 0x9c860395, 0x97b3, 0x490a, 0xb5, 0x2a, 0x85, 0x8c, 0xc2, 0x2a,
                0xf1, 0x66)
__CRT_UUID_DECL(obk::win32::ITableItemProvider, 0xb9734fa6, 0x771f, 0x4d78, 0x9c, 0x90, 0x25, 0x17, 0x99,
                0x93, 0x49, 0xcd)
