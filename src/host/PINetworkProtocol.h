#pragma once

/// Protocol of a network data location.
enum PINetworkProtocol_t : int
{
  PI_PROTOCOL_NONE = 0, ///< none given
  PI_PROTOCOL_UDP = 1,  ///< UDP
  PI_PROTOCOL_TCP = 2   ///< TCP
};
