// Drawing the fade colours on a window.
#include "WindowSurface.h"

#include "GdiObjects.h"

WindowSurface::WindowSurface(HWND window) : window_(window), dc_(GetDC(window))
{
    GetClientRect(window, &client_);
}

WindowSurface::~WindowSurface() { ReleaseDC(window_, dc_); }

void WindowSurface::Line(double x1, double y1, double x2, double y2, ColorValue color)
{
    GdiPen pen(CreatePen(PS_SOLID, 1, static_cast<COLORREF>(color) & 0x00FFFFFF));
    HGDIOBJ old = SelectObject(dc_, pen.get());
    MoveToEx(dc_, static_cast<int>(x1), static_cast<int>(y1), nullptr);
    LineTo(dc_, static_cast<int>(x2), static_cast<int>(y2));
    SelectObject(dc_, old);
}

void WindowSurface::Fill(ColorValue color)
{
    GdiBrush brush(CreateSolidBrush(static_cast<COLORREF>(color) & 0x00FFFFFF));
    FillRect(dc_, &client_, brush.get());
}
