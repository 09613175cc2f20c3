#include "frame/modFormRoutines.h"
