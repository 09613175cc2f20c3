#include "controls/GridColumn.h"
