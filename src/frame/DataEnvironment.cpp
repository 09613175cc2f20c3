#include "frame/DataEnvironment.h"
