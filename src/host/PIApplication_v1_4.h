#pragma once

#include "host/PIApplication_v1_2.h"

/// Adds the terrain raster hooks. A plug-in without terrain keeps the defaults: 0, empty, nothing.
class PIApplication_v1_4 : public PIApplication_v1_2
{
public:
  /// @param set host terrain set @return 0 by default
  virtual int initializeTerrainRasterSet(void* set);
  /// @param info host terrain set information @return 0 by default
  virtual int getTerrainRasterSetInfo(void* info);
  /// @param token host terrain token @return 0 by default
  virtual int parseTerrainRasterSetToken(void* token);
  /// @param set host terrain set @return the set's token text; empty by default
  virtual std::string getTerrainRasterSetTokenString(void* set);
  /// @param node host terrain node request @return 0 by default
  virtual int getTerrainRasterNode(void* node);
  /// @param set host terrain set, released; nothing by default
  virtual void dereferenceTerrainRasterSet(void* set);

  static int s_initializeTerrainRasterSet(void* object, PIFunctionParams_t* params);
  static int s_parseTerrainRasterSetToken(void* object, PIFunctionParams_t* params);
  static int s_getTerrainRasterSetTokenString(void* object, PIFunctionParams_t* params);
  static int s_getTerrainRasterNode(void* object, PIFunctionParams_t* params);
  static int s_dereferenceTerrainRasterSet(void* object, PIFunctionParams_t* params);
  static int s_getTerrainRasterSetInfo(void* object, PIFunctionParams_t* params);
};
