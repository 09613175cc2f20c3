#include "data/Value.h"
