/* The contract headers of the in-house libraries compile as C, with the layout used in C++. */

#include "services/config/config_contract.h"
#include "services/telemetry/telemetry_contract.h"

#include <stddef.h>

/* The declarations as an author of such a library would write them. */
int32_t
SkyrelSendInfo(uint8_t flag, uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...);
VantorConfig *create_config(void);
void release_config(VantorConfig **config);
#define IS_DESCRIBED(function, type)                                                               \
    _Static_assert(_Generic(&function, type : 1, default : 0), "as described")
IS_DESCRIBED(SkyrelSendInfo, SkyrelSendInfoFunction);
IS_DESCRIBED(create_config, VantorCreateConfigFunction);
IS_DESCRIBED(release_config, VantorReleaseConfigFunction);

#define COUNT(name) +1
_Static_assert(0 SKYREL_EXPORTS(COUNT) == 16, "sixteen exports");
_Static_assert(sizeof(SkyrelChar) == 2, "UTF-16");
#define IS_WIDE_CHARACTER _Generic((SkyrelChar *)0, wchar_t * : 1, default : 0)
_Static_assert(sizeof(wchar_t) != 2 || IS_WIDE_CHARACTER,
               "SkyrelChar is wchar_t where that is UTF-16");

#define POSITION(member) (offsetof(VantorConfigTable, member) / sizeof(void *))
_Static_assert(POSITION(init_config) == 1, "position in the table");
_Static_assert(POSITION(set_filter_environment) == 3, "position in the table");
_Static_assert(POSITION(get_bool_value) == 6, "position in the table");
_Static_assert(POSITION(get_string_value) == 9, "position in the table");
_Static_assert(offsetof(struct VantorConfig, table) == 0, "the first word is the table");
_Static_assert(sizeof(bool) == 1, "one byte");

int contracts_are_c(void);
int contracts_are_c(void)
{
    return 0;
}
