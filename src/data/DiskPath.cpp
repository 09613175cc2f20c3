#include "data/DiskPath.h"
