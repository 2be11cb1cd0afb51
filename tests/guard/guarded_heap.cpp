// A heap for the Windows builds, which have no AddressSanitizer. It takes the place of operator new in each
// program and server that links it, and keeps apart what each of them has made:
// - a block ends where its page ends, and the next page faults when it is touched;
// - a block that is freed faults from then on, until the address space that is set aside has been used up;
// - whoever frees a block has made it, as the same kind (one object or an array) and of the same size;
// - the bytes before a block, and those between its end and the page's, are what they were.
// Linux allows a process 65,530 mappings, of which a block of this kind takes two. What does not fit stands
// between two marks in the system's heap: changed marks, wrong owners and most double frees are found there,
// too.
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <new>
#include <utility>

namespace {

constexpr size_t pageSize = 4096;
#ifdef _WIN64
constexpr size_t arenaPages = size_t{1} << 24;  // 64 GiB of addresses
#else
constexpr size_t arenaPages = size_t{1} << 16;  // 256 MiB
#endif
constexpr uint32_t mostGuarded = 12000;  // blocks at a time, of each heap
constexpr size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
constexpr uint8_t untouched = 0xA5, fresh = 0xCD, freed = 0xDD;

enum class Kind : uint32_t { none, object, array };

// Of the first page of each block; all zero for the others.
struct Block {
    uint32_t pages = 0;
    Kind kind = Kind::none;
    size_t size = 0;
};

// Before a block that has no page of its own.
struct alignas(alignment) Mark {
    const void* owner = nullptr;
    size_t size = 0;
    Kind kind = Kind::none;
    void* whole = nullptr;  // as the system's heap knows it, which in 32 bits aligns less
};
constexpr size_t tail = alignment;

void check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "HEAP: %s\n", what);
    std::fflush(stderr);
    __builtin_trap();
}
bool isAll(const uint8_t* from, const uint8_t* to, uint8_t value) {
    return std::all_of(from, to, [value](uint8_t byte) { return byte == value; });
}

class GuardedHeap {
public:
    void* allocate(size_t size, Kind kind) {
        AcquireSRWLockExclusive(&lock_);
        void* block = guarded(size, kind);
        ReleaseSRWLockExclusive(&lock_);
        if (!block) block = marked(size, kind);
        if (!block) throw std::bad_alloc();
        InterlockedIncrement(&blocksNow_);
        return block;
    }
    int blocksNow() const { return static_cast<int>(blocksNow_); }
    // `size` is 0 where nobody knows it.
    void free(void* memory, size_t size, Kind kind) {
        if (!memory) return;
        InterlockedDecrement(&blocksNow_);
        auto* const block = static_cast<uint8_t*>(memory);
        if (!base_ || block < base_ || block >= base_ + arenaPages * pageSize)
            return freeMarked(block, size, kind);
        AcquireSRWLockExclusive(&lock_);
        freeGuarded(block, size, kind);
        ReleaseSRWLockExclusive(&lock_);
    }
    // Gives the addresses back: a server comes and goes many times in one process.
    void close() {
        if (base_) VirtualFree(base_, 0, MEM_RELEASE);
        if (blocks_) VirtualFree(blocks_, 0, MEM_RELEASE);
    }

private:
    static size_t rounded(size_t size) {
        return (std::max<size_t>(size, 1) + alignment - 1) / alignment * alignment;
    }

    bool ready() {
        if (std::exchange(asked_, true)) return base_;
        blocks_ = static_cast<Block*>(
            VirtualAlloc(nullptr, arenaPages * sizeof(Block), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        if (blocks_)
            base_ = static_cast<uint8_t*>(
                VirtualAlloc(nullptr, arenaPages * pageSize, MEM_RESERVE, PAGE_NOACCESS));
        return base_;
    }
    // Where `pages` are free, with one after them that stays so; arenaPages for nowhere.
    size_t place(size_t pages) {
        for (int turn = 0; turn < 2; ++turn, next_ = 0) {
            for (size_t at = next_; at + pages < arenaPages;) {
                Block* const end = blocks_ + at + pages + 1;
                const Block* const used =
                    std::find_if(blocks_ + at, end, [](const Block& block) { return block.pages != 0; });
                if (used == end) return at;
                at = static_cast<size_t>(used - blocks_) + used->pages + 1;
            }
        }
        return arenaPages;
    }
    void* guarded(size_t size, Kind kind) {
        const size_t pages = (rounded(size) + pageSize - 1) / pageSize;
        if (live_ >= mostGuarded || !ready() || pages >= arenaPages / 16) return nullptr;
        const size_t at = place(pages);
        if (at == arenaPages) return nullptr;
        uint8_t* const start = base_ + at * pageSize;
        if (!VirtualAlloc(start, pages * pageSize, MEM_COMMIT, PAGE_READWRITE)) return nullptr;
        ++live_;
        next_ = at + pages + 1;
        blocks_[at] = {static_cast<uint32_t>(pages), kind, size};
        uint8_t* const end = start + pages * pageSize;
        uint8_t* const block = end - rounded(size);
        std::fill(start, end, untouched);
        std::fill(block, block + size, fresh);
        return block;
    }
    void freeGuarded(uint8_t* block, size_t size, Kind kind) {
        const size_t at = static_cast<size_t>(block - base_) / pageSize;
        const Block known = blocks_[at];
        check(known.pages != 0, "what is freed is no block, or was freed before");
        uint8_t* const start = base_ + at * pageSize;
        uint8_t* const end = start + known.pages * pageSize;
        check(block == end - rounded(known.size), "what is freed is inside a block");
        checkKnown(known.size, known.kind, size, kind);
        check(isAll(start, block, untouched), "the bytes before a block were written to");
        check(isAll(block + known.size, end, untouched), "the bytes after a block were written to");
        blocks_[at] = {};
        --live_;
        check(VirtualFree(start, known.pages * pageSize, MEM_DECOMMIT),
              "the system does not take pages back");
    }
    static void checkKnown(size_t knownSize, Kind knownKind, size_t size, Kind kind) {
        check(kind == knownKind, "one object is freed as an array, or an array as one");
        check(size == 0 || size == knownSize, "a block is freed as one of another size");
    }

    void* marked(size_t size, Kind kind) {
        if (size > SIZE_MAX / 2) return nullptr;
        void* const whole = HeapAlloc(GetProcessHeap(), 0, alignment + sizeof(Mark) + size + tail);
        if (!whole) return nullptr;
        auto* const mark = reinterpret_cast<uint8_t*>((reinterpret_cast<uintptr_t>(whole) + alignment - 1) /
                                                      alignment * alignment);
        new (mark) Mark{this, size, kind, whole};
        uint8_t* const block = mark + sizeof(Mark);
        std::fill(block, block + size, fresh);
        std::fill(block + size, block + size + tail, untouched);
        return block;
    }
    void freeMarked(uint8_t* block, size_t size, Kind kind) {
        auto* const mark = reinterpret_cast<Mark*>(block - sizeof(Mark));
        const Mark known = *mark;
        check(known.owner == this, "what is freed is another module's, no block, or was freed before");
        checkKnown(known.size, known.kind, size, kind);
        check(isAll(block + known.size, block + known.size + tail, untouched),
              "the bytes after a block were written to");
        std::fill(reinterpret_cast<uint8_t*>(mark), block + known.size, freed);
        HeapFree(GetProcessHeap(), 0, known.whole);
    }

    SRWLOCK lock_ = SRWLOCK_INIT;
    Block* blocks_ = nullptr;
    uint8_t* base_ = nullptr;
    size_t next_ = 0;
    uint32_t live_ = 0;   // guarded ones
    LONG blocksNow_ = 0;  // all
    bool asked_ = false;
};

// Made before anything asks for memory. A server's is closed after everything else of it; a program's never
// is, because what ends after it may still free something.
constinit GuardedHeap heap;
[[gnu::destructor(101)]] void closeHeap() {
    HMODULE own = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&heap), &own);
    if (own != GetModuleHandleW(nullptr)) heap.close();
}

}  // namespace

// For tests that ask whether anything is left of what a module has made.
extern "C" __declspec(dllexport) int guardedBlocks() {
    return heap.blocksNow();
}

void* operator new(size_t size) {
    return heap.allocate(size, Kind::object);
}
void* operator new[](size_t size) {
    return heap.allocate(size, Kind::array);
}
void operator delete(void* block) noexcept {
    heap.free(block, 0, Kind::object);
}
void operator delete[](void* block) noexcept {
    heap.free(block, 0, Kind::array);
}
void operator delete(void* block, size_t size) noexcept {
    heap.free(block, size, Kind::object);
}
void operator delete[](void* block, size_t size) noexcept {
    heap.free(block, size, Kind::array);
}
