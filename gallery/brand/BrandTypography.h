#pragma once

namespace bkuk::gallery {

/// Registers the family that the kit asks for its fonts and says how large and heavy each role of the brand's
/// texts is. The family is Inter where it is installed or in the directory "fonts" of the program's
/// resources, else DejaVu Sans, else the desktop's own face in every weight.
void registerBrandFonts();

}  // namespace bkuk::gallery
