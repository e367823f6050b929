#pragma once

#include "host/PICoordReferenceFrame.h"
#include "host/PINetworkProtocol.h"

#include <string>

/// @file Scenario access: the scenario-wide properties and frame.

namespace PIData
{

/// @return true once a scenario is opened or made.
bool isScenarioInitialized();
/// Starts a new, empty scenario. @param host data source host name @param port its port @return 0 for success
int initializeScenario(const std::string& host = std::string(), unsigned short port = 0,
                       PINetworkProtocol_t protocol = PI_PROTOCOL_NONE);

std::string getDescription();
void setDescription(const std::string& text);
std::string getClassification();
void setClassification(const std::string& text);
/// @return the classification's colour, RGBA.
unsigned int getClassificationColor();
void setClassificationColor(unsigned int color);
/// @return the year every time counts from.
int getReferenceYear();
void setReferenceYear(int year);

double getLatitudeOrigin();  ///< radians
double getLongitudeOrigin(); ///< radians
double getAltitudeOrigin();  ///< metres
/// Sets the origin. @param lat radians @param lon radians @param alt metres @return 0 for success
int setOriginLLA(double lat, double lon, double alt);
/// Sets the tangent plane. @param x metres @param y metres @param angle radians @return 0 for success
int setTangentPlaneOffsets(double x, double y, double angle);
double getTangentPlaneOffsetX(); ///< metres
double getTangentPlaneOffsetY(); ///< metres
double getTangentPlaneAngle();   ///< radians

double getWindSpeed();     ///< metres per second
void setWindSpeed(double speed);
double getWindDirection(); ///< radians
void setWindDirection(double direction);

/// Reads the scenario's frame, its origin filled in when unset. @return 0 for success
int getScenarioCoordReferenceFrame(PICoordReferenceFrame* frame);
/// Sets the scenario's frame. @return 0 for success
int setScenarioCoordReferenceFrame(const PICoordReferenceFrame* frame);

} // namespace PIData
