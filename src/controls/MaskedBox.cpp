#include "controls/MaskedBox.h"
