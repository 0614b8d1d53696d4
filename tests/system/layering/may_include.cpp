// What macro text is made from may be seen from where it is made: this compiles with src/script's include folders.
#include "com/result.h"
#include "script/tokens.h"
#include "support/str.h"
