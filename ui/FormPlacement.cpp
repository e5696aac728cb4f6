// Centring a form and keeping it on screen.
#include "FormPlacement.h"

FormRect CenterRect(FormRect form, long screenWidth, long screenHeight)
{
    form.left = (screenWidth - form.width) / 2;
    form.top = (screenHeight - form.height) / 2;
    return form;
}

FormRect RePosRect(FormRect form, int axis, long screenWidth, long screenHeight)
{
    if (axis == 0) {
        if (screenHeight - form.height < form.top) form.top = screenHeight - form.height;
        if (form.top < 0) form.top = 0;
    } else if (axis == 1) {
        if (form.left < 0) form.left = 0;
        if (screenWidth - form.width < form.left) form.left = screenWidth - form.width;
    }
    return form;
}

long ShownTwips(long twips, long twipsPerPixel)
{
    return twipsPerPixel > 0 ? twips / twipsPerPixel * twipsPerPixel : twips;
}
