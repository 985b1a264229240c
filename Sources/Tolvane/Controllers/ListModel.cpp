#include <Controllers/ListModel.h>
