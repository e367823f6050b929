#pragma once

class PIObject;

/// A command the host can run: called with the window it came from and the event data.
class FunctorTwoParams__
{
public:
  /// Runs the command. @param sender the window wrapper, may be null @param data event data
  virtual int operator()(PIObject* sender, void* data) = 0;
  /// The same as operator(), for hosts that call by name.
  virtual int Call(PIObject* sender, void* data) = 0;
  virtual ~FunctorTwoParams__() = default;
};
