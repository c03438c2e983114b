#pragma once

// Tree operations the editing code needs and the XML layer does not offer yet.
// They stay minimal and belong in core/base/xml once that layer grows them.

#include "core/base/xml/xml_document.h"

namespace trackloom {

/// Links `child` as the very first child node of `parent`, before any text,
/// comment or element already there.
void insertAsFirstChild(xml::Element parent, xml::Element child);

} // namespace trackloom
