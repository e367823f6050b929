#include "host/PIDataScenario.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

// The plainest properties pass the address of the value itself.
template <typename T>
T getPlain(PIServerFunctions_t family, T fallback)
{
  T value = fallback;
  handle(family, &value);
  return value;
}

template <typename T>
void setPlain(PIServerFunctions_t family, T value)
{
  handle(family, &value);
}

double frameValue(int selector)
{
  auto r = PIRequest::catchAll(selector);
  r.doubles = {0.0};
  handle(PISF_SCENARIO_FRAME, &r);
  return r.doubleAt(0);
}

int setFrameValues(int selector, double a, double b, double c)
{
  auto r = PIRequest::catchAll(selector);
  r.doubles = {a, b, c};
  return PIRequest::send(PISF_SCENARIO_FRAME, r);
}

} // namespace

bool isScenarioInitialized()
{
  auto r = PIRequest::catchAll(PISelector::SCENARIO_IS_INITIALIZED);
  handle(PISF_SCENARIO_INITIALIZED, &r);
  return r.integerAt(1) != 0;
}

int initializeScenario(const std::string& host, unsigned short port, PINetworkProtocol_t protocol)
{
  auto r = PIRequest::catchAll(PISelector::SCENARIO_INITIALIZE, {port, protocol});
  r.strings = {host};
  return PIRequest::send(PISF_SCENARIO_INITIALIZED, r);
}

std::string getDescription() { return getPlain<std::string>(PISF_GET_DESCRIPTION, std::string()); }
void setDescription(const std::string& text) { setPlain(PISF_SET_DESCRIPTION, text); }
std::string getClassification() { return getPlain<std::string>(PISF_GET_CLASSIFICATION, std::string()); }
void setClassification(const std::string& text) { setPlain(PISF_SET_CLASSIFICATION, text); }
unsigned int getClassificationColor() { return getPlain<unsigned int>(PISF_GET_CLASSIFICATION_COLOR, 0u); }
void setClassificationColor(unsigned int color) { setPlain(PISF_SET_CLASSIFICATION_COLOR, color); }
int getReferenceYear() { return getPlain<int>(PISF_GET_REFERENCE_YEAR, 0); }
void setReferenceYear(int year) { setPlain(PISF_SET_REFERENCE_YEAR, year); }

double getLatitudeOrigin() { return getPlain<double>(PISF_GET_LATITUDE_ORIGIN, 0.0); }
double getLongitudeOrigin() { return getPlain<double>(PISF_GET_LONGITUDE_ORIGIN, 0.0); }
double getAltitudeOrigin() { return frameValue(PISelector::FRAME_GET_ALTITUDE_ORIGIN); }
int setOriginLLA(double lat, double lon, double alt) { return setFrameValues(PISelector::FRAME_SET_ORIGIN_LLA, lat, lon, alt); }
int setTangentPlaneOffsets(double x, double y, double angle)
{
  return setFrameValues(PISelector::FRAME_SET_TANGENT_PLANE, x, y, angle);
}
double getTangentPlaneOffsetX() { return frameValue(PISelector::FRAME_GET_TP_OFFSET_X); }
double getTangentPlaneOffsetY() { return frameValue(PISelector::FRAME_GET_TP_OFFSET_Y); }
double getTangentPlaneAngle() { return frameValue(PISelector::FRAME_GET_TP_ANGLE); }

double getWindSpeed() { return getPlain<double>(PISF_GET_WIND_SPEED, 0.0); }
void setWindSpeed(double speed) { setPlain(PISF_SET_WIND_SPEED, speed); }
double getWindDirection() { return getPlain<double>(PISF_GET_WIND_DIRECTION, 0.0); }
void setWindDirection(double direction) { setPlain(PISF_SET_WIND_DIRECTION, direction); }

int getScenarioCoordReferenceFrame(PICoordReferenceFrame* frame)
{
  if (!frame)
    return 1;
  auto r = PIRequest::catchAll(PISelector::FRAME_GET_COORD_REFERENCE_FRAME);
  r.pointers = {frame};
  return PIRequest::send(PISF_SCENARIO_FRAME, r);
}

int setScenarioCoordReferenceFrame(const PICoordReferenceFrame* frame)
{
  if (!frame)
    return 1;
  auto r = PIRequest::catchAll(PISelector::FRAME_SET_COORD_REFERENCE_FRAME);
  r.pointers = {const_cast<PICoordReferenceFrame*>(frame)};
  return PIRequest::send(PISF_SCENARIO_FRAME, r);
}

} // namespace PIData
