#include "controls/Combo.h"
