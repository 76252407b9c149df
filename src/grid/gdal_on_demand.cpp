#include "grid/gdal_on_demand.h"

#ifdef GDAL_LIBRARY_FILE

#include "support/fault.h"

#include <dlfcn.h>
#include <string>

void * gdal_function(const char * name)
{
    static void * const library = ::dlopen(GDAL_LIBRARY_FILE, RTLD_LAZY | RTLD_LOCAL);
    void * const function = library == nullptr ? nullptr : ::dlsym(library, name);
    if (function != nullptr) return function;
    const char * const reason = ::dlerror();
    throw Fault(std::string("grids cannot be read, as GDAL is not there: ") + (reason != nullptr ? reason : GDAL_LIBRARY_FILE));
}

#endif
