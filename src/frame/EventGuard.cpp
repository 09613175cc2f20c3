#include "frame/EventGuard.h"
