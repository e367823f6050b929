#include "host/PURegistryCoordReferenceFrame.h"

#include "host/PURegistry.h"

namespace PURegistry
{

void PURegistryCoordReferenceFrame::loadValues()
{
  PIData::PICoordReferenceFrame& f = frame_;
  f.coordinateSystem =
      static_cast<PICoordSystem_t>(loadReg(static_cast<int>(f.coordinateSystem), key_("COORD_REFERENCE_FRAME_SYSTEM")));
  f.verticalDatum = static_cast<PIVerticalDatum_t>(
      loadReg(static_cast<int>(f.verticalDatum), key_("COORD_REFERENCE_FRAME_VERT_DATUM")));
  f.magneticVariance = static_cast<PIMagneticVariance_t>(
      loadReg(static_cast<int>(f.magneticVariance), key_("COORD_REFERENCE_FRAME_MAG_VAR")));
  f.latOrigin = loadReg(f.latOrigin, key_("COORD_REFERENCE_FRAME_LAT"));
  f.lonOrigin = loadReg(f.lonOrigin, key_("COORD_REFERENCE_FRAME_LON"));
  f.altOrigin = loadReg(f.altOrigin, key_("COORD_REFERENCE_FRAME_ALT"));
  f.verticalOffsetValue = loadReg(f.verticalOffsetValue, key_("COORD_REFERENCE_FRAME_VERT_OFFSET_VALUE"));
  f.magneticVarianceValue = loadReg(f.magneticVarianceValue, key_("COORD_REFERENCE_FRAME_MAG_VAR_VALUE"));
  f.tangentPlaneXOffset = loadReg(f.tangentPlaneXOffset, key_("COORD_REFERENCE_FRAME_TP_X_OFFSET"));
  f.tangentPlaneYOffset = loadReg(f.tangentPlaneYOffset, key_("COORD_REFERENCE_FRAME_TP_Y_OFFSET"));
  f.tangentPlaneAngle = loadReg(f.tangentPlaneAngle, key_("COORD_REFERENCE_FRAME_TP_ANGLE"));
  f.eciReferenceTime = loadReg(f.eciReferenceTime, key_("COORD_REFERENCE_FRAME_REF_TIME_ECI"));
}

void PURegistryCoordReferenceFrame::saveValues(const std::string& prefix)
{
  prefix_ = prefix;
  const PIData::PICoordReferenceFrame& f = frame_;
  saveReg(key_("COORD_REFERENCE_FRAME_SYSTEM"), static_cast<int>(f.coordinateSystem));
  saveReg(key_("COORD_REFERENCE_FRAME_VERT_DATUM"), static_cast<int>(f.verticalDatum));
  saveReg(key_("COORD_REFERENCE_FRAME_MAG_VAR"), static_cast<int>(f.magneticVariance));
  saveReg(key_("COORD_REFERENCE_FRAME_LAT"), f.latOrigin);
  saveReg(key_("COORD_REFERENCE_FRAME_LON"), f.lonOrigin);
  saveReg(key_("COORD_REFERENCE_FRAME_ALT"), f.altOrigin);
  saveReg(key_("COORD_REFERENCE_FRAME_VERT_OFFSET_VALUE"), f.verticalOffsetValue);
  saveReg(key_("COORD_REFERENCE_FRAME_MAG_VAR_VALUE"), f.magneticVarianceValue);
  saveReg(key_("COORD_REFERENCE_FRAME_TP_X_OFFSET"), f.tangentPlaneXOffset);
  saveReg(key_("COORD_REFERENCE_FRAME_TP_Y_OFFSET"), f.tangentPlaneYOffset);
  saveReg(key_("COORD_REFERENCE_FRAME_TP_ANGLE"), f.tangentPlaneAngle);
  saveReg(key_("COORD_REFERENCE_FRAME_REF_TIME_ECI"), f.eciReferenceTime);
}

} // namespace PURegistry
