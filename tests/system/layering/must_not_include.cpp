// Making macro text must not know the application that runs it: this must not compile with src/script's include folders.
#include "cad/tv_manager.h"
