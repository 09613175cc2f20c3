#include "frame/MousePointer.h"
