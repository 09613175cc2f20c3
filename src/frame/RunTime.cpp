#include "frame/RunTime.h"
