// SPDX-License-Identifier: MIT
// FormFont: the platform's font object and its block of properties in a form file.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include "com/ComObject.h"
#include "host/formfile/FormFile.h"

namespace Quorvane::Host {

/// A new font object made from the properties Name, Size (points), Weight (400 is normal, 700
/// bold), Charset, Italic, Underline and Strikethrough; what is missing is as in DefaultFont.
/// Throws Com::HresultError for a property that does not convert.
Com::ComPtr<IFontDisp> MakeFont(const FormProperties& properties);

/// The font of a form that names none: Tahoma, 8.25 points.
Com::ComPtr<IFontDisp> DefaultFont();

/// The properties that MakeFont reads. Throws Com::HresultError if the font does not tell one.
FormProperties DescribeFont(IFont& font);

} // namespace Quorvane::Host
