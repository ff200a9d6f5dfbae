#pragma once

/*
 * What the remote-configuration library "vantoronlineconfig.dll" is to its client: two exports and
 * an object. Compiles as C and as C++. Texts are UTF-8 with a zero at the end and stay the
 * caller's.
 *
 * The object's first word points to a table of functions. It is described as such rather than as a
 * class, since compilers differ in how many entries a virtual destructor takes. Entries without a
 * name here are the library's own.
 */

#include <stdbool.h> /* NOLINT(modernize-deprecated-headers): C too */
#include <stdint.h>  /* NOLINT(modernize-deprecated-headers): C too */

#define VANTOR_CONFIG_LIBRARY "vantoronlineconfig.dll"
#define VANTOR_CREATE_CONFIG "create_config"
#define VANTOR_RELEASE_CONFIG "release_config"

/* Results of a sizing call of get_string_value that are no length. */
#define VANTOR_QUERY_ERROR 0
#define VANTOR_NO_VALUE (-1)

/* NOLINTBEGIN(modernize-use-using, modernize-redundant-void-arg): C too */
typedef struct VantorConfig VantorConfig;

typedef struct VantorConfigTable
{
    void (*own0)(void);
    /* Whether the initialisation succeeded; `mode` is always 0. */
    bool (*init_config)(VantorConfig *config, int mode);
    void (*own2)(void);
    /* Selects the audience for all later look-ups. */
    void (*set_filter_environment)(VantorConfig *config, const char *prefix);
    void (*own4)(void);
    void (*own5)(void);
    /* Leaves `*value` alone when there is nothing; the result says nothing to this client. */
    bool (*get_bool_value)(VantorConfig *config, const char *key, bool *value, const char *suffix);
    void (*own7)(void);
    void (*own8)(void);
    /* With a null buffer: the value's length without its zero, or one of the two results above.
     * With one: fills at most `size` bytes. */
    int32_t (*get_string_value)(
        VantorConfig *config, const char *key, char *buffer, uint32_t size, const char *suffix);
} VantorConfigTable;

struct VantorConfig
{
    const VantorConfigTable *table;
};

/* "create_config": the object, the library's own; null on failure. */
typedef VantorConfig *(*VantorCreateConfigFunction)(void);
/* "release_config": releases the object and clears the client's pointer to it. */
typedef void (*VantorReleaseConfigFunction)(VantorConfig **config);
/* NOLINTEND(modernize-use-using, modernize-redundant-void-arg) */
