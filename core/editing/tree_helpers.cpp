#include "core/editing/tree_helpers.h"

#include <libxml/tree.h>

namespace trackloom {

void insertAsFirstChild(xml::Element parent, xml::Element child) {
    xmlNodePtr first = parent.node()->children;
    if (first == nullptr) {
        xmlAddChild(parent.node(), child.node());
    } else {
        xmlAddPrevSibling(first, child.node());
    }
}

} // namespace trackloom
