#include "frame/modErrorRoutines.h"
