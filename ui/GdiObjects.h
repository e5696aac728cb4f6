// Owning wrappers for the GDI objects the forms and buttons draw with:
// movable, never copyable, deleted when they go.
#pragma once

#include <windows.h>

#include <utility>

template <class Handle>
class GdiObject {
public:
    GdiObject() = default;
    explicit GdiObject(Handle h) : h_(h) {}
    ~GdiObject() { reset(); }
    GdiObject(GdiObject&& o) noexcept : h_(std::exchange(o.h_, nullptr)) {}
    GdiObject& operator=(GdiObject&& o) noexcept
    {
        if (this != &o) {
            reset();
            h_ = std::exchange(o.h_, nullptr);
        }
        return *this;
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    Handle get() const { return h_; }
    explicit operator bool() const { return h_ != nullptr; }
    void reset(Handle h = nullptr)
    {
        if (h_) DeleteObject(h_);
        h_ = h;
    }

private:
    Handle h_ = nullptr;
};

using GdiBrush = GdiObject<HBRUSH>;
using GdiFont = GdiObject<HFONT>;
using GdiBitmap = GdiObject<HBITMAP>;
using GdiPen = GdiObject<HPEN>;

// Selects an object into a device context for one scope.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ obj) : dc_(dc), old_(SelectObject(dc, obj)) {}
    ~Selected() { SelectObject(dc_, old_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ old_;
};

// A memory device context, deleted when it goes.
class MemoryDC {
public:
    explicit MemoryDC(HDC like = nullptr) : dc_(CreateCompatibleDC(like)) {}
    ~MemoryDC() { if (dc_) DeleteDC(dc_); }
    MemoryDC(MemoryDC&& o) noexcept : dc_(std::exchange(o.dc_, nullptr)) {}
    MemoryDC& operator=(MemoryDC&& o) noexcept
    {
        if (this != &o) {
            if (dc_) DeleteDC(dc_);
            dc_ = std::exchange(o.dc_, nullptr);
        }
        return *this;
    }
    MemoryDC(const MemoryDC&) = delete;
    MemoryDC& operator=(const MemoryDC&) = delete;
    HDC get() const { return dc_; }

private:
    HDC dc_;
};

// The screen's device context for one scope.
class ScreenDC {
public:
    ScreenDC() : dc_(GetDC(nullptr)) {}
    ~ScreenDC() { ReleaseDC(nullptr, dc_); }
    ScreenDC(const ScreenDC&) = delete;
    ScreenDC& operator=(const ScreenDC&) = delete;
    HDC get() const { return dc_; }

private:
    HDC dc_;
};
