/*
 * Both in-house libraries in one, written in C from their contracts alone: what a maker of such a
 * library has, who knows nothing of the program's compiler.
 */

#include "services/config/config_contract.h"
#include "services/telemetry/telemetry_contract.h"

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

/* All exports but the one that is called. */
#define SkyrelSendInfo SkyrelOfNoUse
#define DEFINE(name)                                                                               \
    int name(void);                                                                                \
    int name(void)                                                                                 \
    {                                                                                              \
        return 0;                                                                                  \
    }
SKYREL_EXPORTS(DEFINE)
#undef SkyrelSendInfo

int32_t
SkyrelSendInfo(uint8_t flag, uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...);
_Static_assert(_Generic(&SkyrelSendInfo, SkyrelSendInfoFunction : 1, default : 0), "as described");

static int32_t LengthOf(const SkyrelChar *text)
{
    int32_t length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return length;
}

/* In decimal: the flag, whether wide, the number of arguments, the length of all texts (000). */
int32_t
SkyrelSendInfo(uint8_t flag, uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...)
{
    int32_t count = 5;
    int32_t length = LengthOf(name) + LengthOf(value);
    va_list rest;
    va_start(rest, value);
    for (const void *item = va_arg(rest, const void *); strcmp(item, SKYREL_END_OF_LIST) != 0;
         item = va_arg(rest, const void *)) {
        length += LengthOf(item);
        ++count;
    }
    va_end(rest);
    return ((flag * 10 + wide) * 100 + count) * 1000 + length;
}

static char environment[32] = "nobody";

static void Own(void) {}

static bool InitConfig(VantorConfig *config, int mode)
{
    (void)config;
    return mode == 0;
}

static void SetFilterEnvironment(VantorConfig *config, const char *prefix)
{
    (void)config;
    snprintf(environment, sizeof(environment), "%s", prefix);
}

static bool GetBoolValue(VantorConfig *config, const char *key, bool *value, const char *suffix)
{
    (void)config;
    *value = strcmp(key, "switch") == 0 && strcmp(suffix, "on") == 0;
    return true;
}

/* Every key has a value, which tells what it was asked for. */
static int32_t GetStringValue(
    VantorConfig *config, const char *key, char *buffer, uint32_t size, const char *suffix)
{
    (void)config;
    return snprintf(buffer, buffer != NULL ? size : 0, "%s|%s|%s", environment, key, suffix);
}

static const VantorConfigTable table = {
    Own, InitConfig, Own, SetFilterEnvironment, Own, Own, GetBoolValue, Own, Own, GetStringValue};
static VantorConfig object = {&table};

VantorConfig *create_config(void);
_Static_assert(_Generic(&create_config, VantorCreateConfigFunction : 1, default : 0),
               "as described");
VantorConfig *create_config(void)
{
    return &object;
}

void release_config(VantorConfig **config);
_Static_assert(_Generic(&release_config, VantorReleaseConfigFunction : 1, default : 0),
               "as described");
void release_config(VantorConfig **config)
{
    *config = NULL;
}
