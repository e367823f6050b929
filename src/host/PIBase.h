#pragma once

#include <string>

/// Version and identity operations of the client library.
class PIBase
{
public:
  /// @return 1
  static int majorVersion() { return 1; }
  /// @return 29
  static int minorVersion() { return 29; }
  /// @return 0
  static int revisionVersion() { return 0; }
  /// @return 12900
  static int buildNumber() { return 12900; }
  /// @return major, minor and revision joined by ".", so "1.29.0".
  static std::string versionString();
  /// @return this library's version in the double form of the old scheme.
  static double legacyApiVersion();
  /**
   * Turns a three-part version into the double of the old scheme.
   * @param major major version @param minor minor version @param revision revision
   */
  static double legacyApiVersion(int major, int minor, int revision);

  /**
   * Pushes an identity under which this plug-in's requests go out while it is on top.
   * The stack lives in the host (family 16, selector 1).
   * @return the status the host wrote
   */
  static int pushOverrideThisPointer(void* identity);
  /// Pops the top identity of the host's stack (selector 2). @return the host's status
  static int popOverrideThisPointer();
  /// @return the top of the host's identity stack, null when empty or without a host (selector 0).
  static void* getOverriddenThisPointer();
};
