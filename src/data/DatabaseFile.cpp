#include "data/DatabaseFile.h"
