#include <DuplicatesKit/DuplicateFile.h>

namespace tolvane {

bool DuplicateFile::isUnchanged(const ResourceValues& values) const {
    return values.isRegularFile.value_or(false) && values.fileSize.value_or(0) == size &&
           values.contentModificationDate == modified && values.identity == identity &&
           values.attributeModificationDate == attributesModified;
}

}
