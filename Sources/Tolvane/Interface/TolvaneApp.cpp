#include <Interface/TolvaneApp.h>
