#include "host/PIApplication_v1_13.h"

int PIApplication_v1_13::LoadInKELVOR10() { return 1; }

int PIApplication_v1_13::s_LoadInKELVOR10(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    setIntegerResult(*params, applicationFrom<PIApplication_v1_13>(object)->LoadInKELVOR10());
  return 0;
}
