#pragma once

#include "host/PIApplicationEvents.h"
#include "host/PIFunctionParams.h"
#include "host/PINetworkProtocol.h"

#include <string>
#include <vector>

/**
 * @brief First generation of the client interface: the oldest slots of every plug-in object.
 *
 * Each generation derives from the one before and keeps every older slot. The static s_
 * stubs are the client message map's entries: each takes the plug-in object (as the
 * PIApplication_v0_5_0* it was registered as) and the message's parameters, calls one
 * virtual operation, writes the result into the parameters and returns 0. A stub does nothing
 * when the object or the parameters are null.
 */
class PIApplication_v0_5_0
{
public:
  virtual ~PIApplication_v0_5_0() = default;

  /// @return the plug-in's name; empty by default.
  virtual std::string Name();
  /// Starts the plug-in. @return 0 to run, anything else to decline
  virtual int StartUp();
  /// Periodic callback of the host. @return 0
  virtual int Callback();
  /// Ends the plug-in's work before it is deleted. @return 0
  virtual int Close();
  /// Closes the network data location.
  virtual void closeLocation();
  /// Opens a network data location. @param location host name @param port port @param protocol protocol
  virtual void openLocation(std::string location, int port, PINetworkProtocol_t protocol);
  /// Looks up a network data location. @param location host name @param port port @param protocol protocol
  virtual void findNetworkLocation(std::string location, int port, PINetworkProtocol_t protocol);
  /// Takes one saved configuration option back. @param key option name @param value option text
  virtual void handleConfigOption(std::string key, std::string value);
  /// Appends the options to save to options, key then value for each.
  virtual void saveConfigOptions(std::vector<std::string>* options);
  /// An event of the host. @param event what happened @param data the event's data, may be null
  virtual void listenToEvents(PIApplicationEvents_t event, void* data);
  /// Draws after a view refresh. @param first host drawing argument @param second host drawing argument
  virtual void drawOnRefresh(int first, int second);

  static int s_Callback(void* object, PIFunctionParams_t* params);
  static int s_Close(void* object, PIFunctionParams_t* params);
  static int s_Name(void* object, PIFunctionParams_t* params);
  static int s_CloseLocation(void* object, PIFunctionParams_t* params);
  static int s_OpenLocation(void* object, PIFunctionParams_t* params);
  static int s_FindNetworkLocation(void* object, PIFunctionParams_t* params);
  static int s_HandleConfigOption(void* object, PIFunctionParams_t* params);
  static int s_SaveConfigOptions(void* object, PIFunctionParams_t* params);
  static int s_ListenToEvents(void* object, PIFunctionParams_t* params);
  static int s_DrawOnRefresh(void* object, PIFunctionParams_t* params);
};

/// The plug-in object behind a stub's object pointer, as the generation T that the stub serves.
template <typename T>
T* applicationFrom(void* object)
{
  return static_cast<T*>(static_cast<PIApplication_v0_5_0*>(object));
}

/// Integer argument key of params as an int (absent keys read 0).
inline int intArgument(const PIFunctionParams_t& params, PIParameterName_t key)
{
  return static_cast<int>(params.integer(key));
}

/// Writes an integer result under key 0, widened to 64 bits with its sign.
inline void setIntegerResult(PIFunctionParams_t& params, int result)
{
  params.integers[PIPN_RESULT] = static_cast<std::uint64_t>(static_cast<std::int64_t>(result));
}
