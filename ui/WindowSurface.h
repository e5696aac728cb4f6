// A window's client area as a DrawSurface, one unit a pixel: the fade
// preview strip and the about box's gradient paint through it.
#pragma once

#include <windows.h>

#include "modFade.h"

class WindowSurface : public DrawSurface {
public:
    explicit WindowSurface(HWND window);
    ~WindowSurface() override;
    WindowSurface(const WindowSurface&) = delete;
    WindowSurface& operator=(const WindowSurface&) = delete;

    double ScaleWidth() const override { return client_.right; }
    double ScaleHeight() const override { return client_.bottom; }
    // A line in a true colour (0x00BBGGRR), its last point left out as GDI does.
    void Line(double x1, double y1, double x2, double y2, ColorValue color) override;
    // The whole client area in one colour.
    void Fill(ColorValue color);

private:
    HWND window_;
    HDC dc_;
    RECT client_{};
};
