#include "system_blocks_support.h"

#include <objbase.h>
#include <windows.h>

namespace obk::testing_support {

namespace {

// The system calls it one thread after the other, and asks for it by reference.
class BlockSpy final : public IMallocSpy {
public:
    virtual ~BlockSpy() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        const bool known = iid == __uuidof(IUnknown) || iid == IID_IMallocSpy;
        *result = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        blocks += block != nullptr;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
        freed_ = block != nullptr;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL counted) override { blocks -= counted && freed_; }
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** same, BOOL counted) override {
        *same = block;
        fresh_ = !block;
        gone_ = block && counted && size == 0;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override {
        blocks += (fresh_ && block) - gone_;
        return block;
    }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int did) override { return did; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

    int blocks = 0;

private:
    bool freed_ = false, fresh_ = false, gone_ = false;
};

BlockSpy* spyAtWork() {
    static BlockSpy spy;
    // Texts that the system keeps for the next ones would count as used.
    if (const auto keepNone = reinterpret_cast<void(WINAPI*)()>(
            GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")))
        keepNone();
    return SUCCEEDED(CoRegisterMallocSpy(&spy)) ? &spy : nullptr;
}

}  // namespace

int systemBlockCount() {
    static BlockSpy* const spy = spyAtWork();
    return spy ? spy->blocks : 0;
}

}  // namespace obk::testing_support
