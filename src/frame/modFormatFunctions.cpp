#include "frame/modFormatFunctions.h"
