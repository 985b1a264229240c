#include <HostKit/Checked.h>

#include <cstdio>
#include <cstdlib>

namespace tolvane {

void failOnOverflow(const char* operation) {
    std::fprintf(stderr, "tolvane: a size does not fit into 64 bits (%s); stopping\n", operation);
    std::abort();
}

}
