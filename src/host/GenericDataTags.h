#pragma once

/// @file
/// Generic-data tags that the host understands, and the default fonts of its text tags.
/// The full list lets a host tag be told from free text.

/// Prefix of the host's own tags.
constexpr const char* KELVOR_GD_KEYWORD = "KELVOR_";
/// Prefix of tags that plug-ins write.
constexpr const char* KELVOR_PLUGIN_GD_KEYWORD = "PluginData_";

constexpr const char* KELVOR_GD_CLEAR = "ClearGenData";
constexpr const char* KELVOR_GD_DROPTRACK = "KELVOR_DropTrack";
constexpr const char* KELVOR_GD_CHANGEICON = "KELVOR_ChangeIcon";
constexpr const char* KELVOR_GD_CALLSIGN = "KELVOR_Callsign";
constexpr const char* KELVOR_GD_FONTCOLOR = "KELVOR_FontColor";
constexpr const char* KELVOR_GD_TRACKCOLOR = "KELVOR_TrackColor";
constexpr const char* KELVOR_GD_OVERRIDECOLOR = "KELVOR_OverrideColor";
constexpr const char* KELVOR_GD_SCALELEVEL = "KELVOR_ScaleLevel";
constexpr const char* KELVOR_GD_DYNAMICSCALE = "KELVOR_DynamicScale";
constexpr const char* KELVOR_GD_INFOTEXT = "KELVOR_InfoText";
constexpr const char* KELVOR_GD_SCREENTEXT = "KELVOR_ScreenText";
constexpr const char* KELVOR_GD_TITLETEXT = "KELVOR_TitleText";
constexpr const char* KELVOR_GD_SCALEXYZ = "KELVOR_ScaleXYZ";
constexpr const char* KELVOR_GD_POLYGON_MODE = "KELVOR_PolygonMode";
constexpr const char* KELVOR_GD_POLYGON_STIPPLE = "KELVOR_PolygonStipple";
constexpr const char* KELVOR_GD_CULL_FACE = "KELVOR_CullFace";
constexpr const char* KELVOR_GD_ALPHA_VOLUME = "KELVOR_AlphaVolume";
constexpr const char* KELVOR_GD_SERVERSTATE = "KELVOR_ServerState";
constexpr const char* KELVOR_GD_DRAWMODE = "KELVOR_DrawMode";
constexpr const char* KELVOR_GD_WIND_SPEED = "KELVOR_WindSpeed";
constexpr const char* KELVOR_GD_WIND_DIRECTION = "KELVOR_WindDirection";
constexpr const char* KELVOR_GD_HBW = "KELVOR_HBW";
constexpr const char* KELVOR_GD_VBW = "KELVOR_VBW";
constexpr const char* KELVOR_GD_BEARINGLINE_TEXT = "KELVOR_BearingLine";
constexpr const char* KELVOR_GD_CYLINDER_TEXT = "KELVOR_Cylinder";
constexpr const char* KELVOR_GD_ROCKETBURN_TEXT = "KELVOR_RocketBurn";
constexpr const char* KELVOR_GD_VAPORTRAIL_TEXT = "KELVOR_VaporTrail";
constexpr const char* KELVOR_GD_ANIMATEDLINE_TEXT = "KELVOR_AnimatedLine";
constexpr const char* KELVOR_GD_PLUME_TEXT = "KELVOR_Plume";

/// Every host tag above, in the order listed, for telling a tag from free text.
constexpr const char* KELVOR_GD_ALL_TAGS[] = {
  KELVOR_GD_CLEAR, KELVOR_GD_DROPTRACK, KELVOR_GD_CHANGEICON, KELVOR_GD_CALLSIGN, KELVOR_GD_FONTCOLOR,
  KELVOR_GD_TRACKCOLOR, KELVOR_GD_OVERRIDECOLOR, KELVOR_GD_SCALELEVEL, KELVOR_GD_DYNAMICSCALE,
  KELVOR_GD_INFOTEXT, KELVOR_GD_SCREENTEXT, KELVOR_GD_TITLETEXT, KELVOR_GD_SCALEXYZ, KELVOR_GD_POLYGON_MODE,
  KELVOR_GD_POLYGON_STIPPLE, KELVOR_GD_CULL_FACE, KELVOR_GD_ALPHA_VOLUME, KELVOR_GD_SERVERSTATE,
  KELVOR_GD_DRAWMODE, KELVOR_GD_WIND_SPEED, KELVOR_GD_WIND_DIRECTION, KELVOR_GD_HBW, KELVOR_GD_VBW,
  KELVOR_GD_BEARINGLINE_TEXT, KELVOR_GD_CYLINDER_TEXT, KELVOR_GD_ROCKETBURN_TEXT, KELVOR_GD_VAPORTRAIL_TEXT,
  KELVOR_GD_ANIMATEDLINE_TEXT, KELVOR_GD_PLUME_TEXT};

/// Default font of the title text tag: file and point size.
constexpr const char* GENDATA_TITLEFONT = "arialbd.ttf 50";
/// Default font of the info text tag.
constexpr const char* GENDATA_INFOFONT = "arialbd.ttf 35";
/// Default font of the screen text tag.
constexpr const char* GENDATA_SCREENFONT = "arialbd.ttf 20";
