#pragma once

#include "host/PICoordReferenceFrame.h"
#include "host/PICoordSystem.h"
#include "host/PIPlatformPoint.h"
#include "kelCore/Coordinate.h"
#include "kelCore/CoordinateConverter.h"
#include "kelCore/CoordinateSystem.h"

/// Between the host's description of coordinates (reference frames, its system numbers) and kelCore's.
namespace PUCoordConvert
{

/// @return kelCore's system of a host system; LLA for a value past the host's last
kelCore::CoordinateSystem convertKelCore(PICoordSystem_t system);
/// @return the host's system of a kelCore system; LLA for one the host has no number for
PICoordSystem_t convertPICoordSystem(kelCore::CoordinateSystem system);

/**
 * @return a converter for a frame: existing itself where it serves already (the frame needs no
 * reference, has none, or has existing's), else one set up with the frame's origin (zeros when it
 * has none) and its tangent-plane offsets where all three are set
 */
kelCore::CoordinateConverter makeCoordConvert(const PIData::PICoordReferenceFrame& frame,
                                              const kelCore::CoordinateConverter* existing = nullptr);

/**
 * Fills a point of the frame from a coordinate of LLA or any other system.
 * @param time seconds since the reference year, -1 static
 * @param point receives position, orientation and velocity where the coordinate has them, the
 * time, and the frame (with the converter's origin where the frame has none)
 */
void convertToRefFrame(double time, const kelCore::Coordinate& coordinate, const PIData::PICoordReferenceFrame& frame,
                       PIData::PIPlatformPoint& point, const kelCore::CoordinateConverter& converter);

} // namespace PUCoordConvert
