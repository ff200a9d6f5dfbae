// A configuration library whose object comes from the program that loads it.

#include "tests/fuzz/config_library.h"

VantorConfig *&ObjectToCreate()
{
    static VantorConfig *object = nullptr;
    return object;
}

extern "C" VantorConfig *create_config();
extern "C" VantorConfig *create_config()
{
    return ObjectToCreate();
}

extern "C" void release_config(VantorConfig **config);
extern "C" void release_config(VantorConfig **config)
{
    *config = nullptr;
}
