#include "data/Dialect.h"
