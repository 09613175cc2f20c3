#include "frame/Screen.h"
