#include "server/ScenarioRequests.h"

#include "host/PIServerSelectors.h"
#include "host/PI_DATA_CATCHALL.h"
#include "server/ServerState.h"
#include "store/ScenarioStore.h"

#include <string>

#include <utility>

namespace kelvor
{

namespace
{

std::int64_t finish(PI_DATA_CATCHALL& r, bool ok)
{
  if (r.integers.size() > 1)
    r.integers[1] = ok ? 0 : 1;
  return ok ? 0 : 1;
}

// The plainest properties pass the address of the value itself.
template <typename T>
std::int64_t get(void* record, const T& value)
{
  *static_cast<T*>(record) = value;
  return 0;
}

template <typename T>
std::int64_t set(void* record, T& value)
{
  value = *static_cast<const T*>(record);
  return 0;
}

} // namespace

bool ScenarioRequests::serves(PIServerFunctions_t family)
{
  return (family >= PISF_SCENARIO_INITIALIZED && family <= PISF_GET_LONGITUDE_ORIGIN && family != 210) ||
         (family >= PISF_GET_WIND_SPEED && family <= PISF_SET_WIND_DIRECTION) || family == PISF_SCENARIO_FRAME ||
         family == PISF_CLOCK;
}

std::int64_t ScenarioRequests::serve(PIServerFunctions_t family, void* record)
{
  if (!record)
    return 1;
  ScenarioStore& store = state_.store;
  // Reads look at the properties' const side; a write takes them to change, which journals them.
  const ScenarioProperties& p = store.properties();
  switch (family)
  {
  case PISF_SCENARIO_INITIALIZED: return initialized_(record);
  case PISF_SCENARIO_FRAME: return frame_(record);
  case PISF_CLOCK: return clock_(record);
  case PISF_GET_DESCRIPTION: return get(record, p.description);
  case PISF_SET_DESCRIPTION: return set(record, store.editProperties().description);
  case PISF_GET_CLASSIFICATION: return get(record, p.classification);
  case PISF_SET_CLASSIFICATION: return set(record, store.editProperties().classification);
  case PISF_GET_CLASSIFICATION_COLOR: return get(record, p.classificationColor);
  case PISF_SET_CLASSIFICATION_COLOR: return set(record, store.editProperties().classificationColor);
  case PISF_GET_REFERENCE_YEAR: return get(record, p.referenceYear);
  case PISF_SET_REFERENCE_YEAR: {
    const int year = *static_cast<const int*>(record);
    if (year != p.referenceYear)
    {
      store.editProperties().referenceYear = year;
      store.referenceYearChanged();
    }
    return 0;
  }
  case PISF_GET_LATITUDE_ORIGIN: return get(record, p.latOrigin);
  case PISF_GET_LONGITUDE_ORIGIN: return get(record, p.lonOrigin);
  case PISF_GET_WIND_SPEED: return get(record, p.windSpeed);
  case PISF_SET_WIND_SPEED: return set(record, store.editProperties().windSpeed);
  case PISF_GET_WIND_DIRECTION: return get(record, p.windDirection);
  case PISF_SET_WIND_DIRECTION: return set(record, store.editProperties().windDirection);
  default: return 1;
  }
}

std::int64_t ScenarioRequests::initialized_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  ScenarioStore& store = state_.store;
  if (r.integerAt(0) == PISelector::SCENARIO_INITIALIZE)
  {
    store.startScenario();
    store.scenarioReset();
    return finish(r, true);
  }
  // The answer is the status slot itself: 1 for an initialised scenario.
  if (r.integers.size() > 1)
    r.integers[1] = store.properties().initialized ? 1 : 0;
  return 0;
}

std::int64_t ScenarioRequests::frame_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  const ScenarioProperties& p = state_.store.properties();
  auto answer = [&r](double value) {
    r.doubles.resize(std::max<std::size_t>(r.doubles.size(), 1));
    r.doubles[0] = value;
    return finish(r, true);
  };
  switch (r.integerAt(0))
  {
  case PISelector::FRAME_GET_ALTITUDE_ORIGIN: return answer(p.altOrigin);
  case PISelector::FRAME_GET_TP_OFFSET_X: return answer(p.tangentPlaneX);
  case PISelector::FRAME_GET_TP_OFFSET_Y: return answer(p.tangentPlaneY);
  case PISelector::FRAME_GET_TP_ANGLE: return answer(p.tangentPlaneAngle);
  case PISelector::FRAME_SET_ORIGIN_LLA:
    if (r.doubles.size() < 3)
      return finish(r, false);
  {
    ScenarioProperties& changed = state_.store.editProperties();
    changed.latOrigin = r.doubles[0];
    changed.lonOrigin = r.doubles[1];
    changed.altOrigin = r.doubles[2];
    return finish(r, true);
  }
  case PISelector::FRAME_SET_TANGENT_PLANE:
    if (r.doubles.size() < 3)
      return finish(r, false);
  {
    ScenarioProperties& changed = state_.store.editProperties();
    changed.tangentPlaneX = r.doubles[0];
    changed.tangentPlaneY = r.doubles[1];
    changed.tangentPlaneAngle = r.doubles[2];
    return finish(r, true);
  }
  case PISelector::FRAME_GET_COORD_REFERENCE_FRAME: {
    auto* frame = static_cast<PIData::PICoordReferenceFrame*>(r.pointerAt(0));
    if (!frame)
      return finish(r, false);
    *frame = p.frame;
    if (frame->usesScenarioOrigin())
    {
      frame->latOrigin = p.latOrigin;
      frame->lonOrigin = p.lonOrigin;
      frame->altOrigin = p.altOrigin;
      frame->tangentPlaneXOffset = p.tangentPlaneX;
      frame->tangentPlaneYOffset = p.tangentPlaneY;
      frame->tangentPlaneAngle = p.tangentPlaneAngle;
    }
    return finish(r, true);
  }
  case PISelector::FRAME_SET_COORD_REFERENCE_FRAME: {
    const auto* frame = static_cast<const PIData::PICoordReferenceFrame*>(r.pointerAt(0));
    if (!frame)
      return finish(r, false);
    state_.store.editProperties().frame = *frame;
    return finish(r, true);
  }
  default:
    return finish(r, false);
  }
}

std::int64_t ScenarioRequests::clock_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  ScenarioStore& store = state_.store;
  ScenarioClock& clock = store.clock();
  auto answer = [&r](double value) {
    r.doubles.resize(std::max<std::size_t>(r.doubles.size(), 1));
    r.doubles[0] = value;
    return finish(r, true);
  };
  auto answerInt = [&r](int value) {
    r.integers.resize(std::max<std::size_t>(r.integers.size(), 2));
    r.integers[1] = value;
    return 0;
  };
  switch (r.integerAt(0))
  {
  case PISelector::CLOCK_GET_BEGIN: return answer(clock.begin());
  case PISelector::CLOCK_GET_END: return answer(clock.end());
  case PISelector::CLOCK_GET_TIME:
  case PISelector::CLOCK_GET_VISUAL_TIME: return answer(clock.time());
  case PISelector::CLOCK_SET_TIME:
    clock.setTime(r.doubleAt(0), r.doubleAt(1));
    store.timeChanged();
    return finish(r, true);
  case PISelector::CLOCK_SET_BEGIN:
    clock.setSpan(r.doubleAt(0), clock.end());
    return finish(r, true);
  case PISelector::CLOCK_SET_END:
    clock.setSpan(clock.begin(), r.doubleAt(0));
    return finish(r, true);
  case PISelector::CLOCK_SET_MODE: {
    const int mode = static_cast<int>(r.integerAt(2));
    if (mode < 0 || mode > 3)
      return finish(r, false);
    if (mode != clock.mode())
    {
      clock.setMode(mode);
      store.clockModeChanged();
    }
    if (r.doubleAt(0, -1.0) >= 0.0)
      clock.setTime(r.doubleAt(0));
    return finish(r, true);
  }
  case PISelector::CLOCK_GET_MODE: return answerInt(clock.mode());
  case PISelector::CLOCK_IS_PLAYING: return answerInt(clock.isPlaying() ? 1 : 0);
  case PISelector::CLOCK_STOP: clock.stop(); return finish(r, true);
  case PISelector::CLOCK_PLAY: clock.play(); return finish(r, true);
  case PISelector::CLOCK_AUTO_CONFIGURE: store.autoConfigureClock(); return finish(r, true);
  case PISelector::CLOCK_GET_USER_CONTROLS_DISABLED: return answerInt(clock.userControlsDisabled() ? 1 : 0);
  case PISelector::CLOCK_IS_VISUAL_TIME_ACTIVE: return answerInt(0);
  case PISelector::CLOCK_GET_TIME_FORMAT: return answerInt(clock.timeFormat());
  case PISelector::CLOCK_SET_TIME_FORMAT: clock.setTimeFormat(static_cast<int>(r.integerAt(2))); return finish(r, true);
  default: return finish(r, false);
  }
}

} // namespace kelvor
