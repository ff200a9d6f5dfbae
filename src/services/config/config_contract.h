#pragma once

/*
 * The interface of the remote-configuration library "vantoronlineconfig.dll": two exports and an
 * object. Compiles as C and as C++. Texts are NUL-terminated UTF-8; the caller owns them.
 *
 * The object's first word points to a table of functions. It is declared as a struct rather than as
 * a class, since compilers differ in how many entries a virtual destructor takes. The client calls
 * no entry whose name begins with "own".
 */

#include <stdbool.h> /* NOLINT(modernize-deprecated-headers): C too */
#include <stdint.h>  /* NOLINT(modernize-deprecated-headers): C too */

#define VANTOR_CONFIG_LIBRARY "vantoronlineconfig.dll"
#define VANTOR_CREATE_CONFIG "create_config"
#define VANTOR_RELEASE_CONFIG "release_config"

/* Results of get_string_value without a buffer that are not a length. */
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
    /* Leaves `*value` unchanged when there is no value; the client ignores the result. */
    bool (*get_bool_value)(VantorConfig *config, const char *key, bool *value, const char *suffix);
    void (*own7)(void);
    void (*own8)(void);
    /* With a null buffer: the value's length without its NUL, or one of the two results above.
     * With a buffer: fills at most `size` bytes. */
    int32_t (*get_string_value)(
        VantorConfig *config, const char *key, char *buffer, uint32_t size, const char *suffix);
} VantorConfigTable;

struct VantorConfig
{
    const VantorConfigTable *table;
};

/* "create_config": the object, which the library owns; null on failure. */
typedef VantorConfig *(*VantorCreateConfigFunction)(void);
/* "release_config": releases the object and clears the client's pointer to it. */
typedef void (*VantorReleaseConfigFunction)(VantorConfig **config);
/* NOLINTEND(modernize-use-using, modernize-redundant-void-arg) */
