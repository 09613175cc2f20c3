#include "frame/modRegistry.h"
