#include "controls/DateBox.h"
