#include "controls/ListBox.h"
