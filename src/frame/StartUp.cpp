#include "frame/StartUp.h"
