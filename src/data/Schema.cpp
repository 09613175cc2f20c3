#include "data/Schema.h"
