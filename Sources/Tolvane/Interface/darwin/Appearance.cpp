#include <Interface/Appearance.h>

namespace tolvane {

// The palette tells everything there is to know.
void Appearance::followPortal() {}

}
