#include "controls/Grid.h"
