// Movable global memory, the currency of the clipboard and the common
// dialogs: an owned block and a lock on one for a scope.
#pragma once

#include <windows.h>

#include <utility>

// A zero-filled movable block, freed when it goes unless handed on.
class GlobalBlock {
public:
    explicit GlobalBlock(SIZE_T bytes) : h_(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes)) {}
    ~GlobalBlock()
    {
        if (h_) GlobalFree(h_);
    }
    GlobalBlock(GlobalBlock&& other) noexcept : h_(std::exchange(other.h_, nullptr)) {}
    GlobalBlock& operator=(GlobalBlock&&) = delete;
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;

    HGLOBAL get() const { return h_; }
    // For a new owner (the clipboard) that frees the block itself.
    HGLOBAL Release() { return std::exchange(h_, nullptr); }

private:
    HGLOBAL h_;
};

// The address of a global block, locked while the object lives.
class GlobalLockScope {
public:
    explicit GlobalLockScope(HGLOBAL block) : block_(block), data_(block ? GlobalLock(block) : nullptr) {}
    ~GlobalLockScope()
    {
        if (data_) GlobalUnlock(block_);
    }
    GlobalLockScope(const GlobalLockScope&) = delete;
    GlobalLockScope& operator=(const GlobalLockScope&) = delete;
    void* Data() const { return data_; }

private:
    HGLOBAL block_;
    void* data_;
};
