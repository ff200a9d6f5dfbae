#pragma once

#include "services/config/config_contract.h"

/// What the configuration library beside the program `config_answers` hands out.
VantorConfig *&ObjectToCreate();
