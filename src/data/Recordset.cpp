#include "data/Recordset.h"
