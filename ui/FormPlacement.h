// Where a form goes on the screen: centred, or pulled back inside it. All
// figures in twips; portable so the arithmetic is tested on its own.
#pragma once

struct FormRect {
    long left = 0, top = 0, width = 0, height = 0;
};

// The form centred on a screen of the given size.
FormRect CenterRect(FormRect form, long screenWidth, long screenHeight);

// axis 0 keeps the form inside the screen vertically, axis 1 horizontally;
// other values change nothing. A form larger than the screen ends at top 0
// but right-aligned, because of the order of the two tests.
FormRect RePosRect(FormRect form, int axis, long screenWidth, long screenHeight);

// The size in twips that a form asked to be `twips` gets on a display of
// `twipsPerPixel`: whole pixels, the fraction dropped (990 twips is 82.5
// pixels at 120 DPI and shows as 82, that is 984 twips).
long ShownTwips(long twips, long twipsPerPixel);
