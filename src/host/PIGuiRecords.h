#pragma once

/**
 * @file
 * Fixed-shape records of the legacy window calls. Each holds the members its name says, in
 * the order of its name; they are one family and are kept together.
 */

#include "host/PI_DATA_BASE_CLASS.h"

#include <string>

class FunctorTwoParams__;

/// Registers a handler functor for a window's event.
class PI_REGISTER_HANDLER_DATA : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;                 ///< the window
  int selector = 0;                        ///< the event
  FunctorTwoParams__* function = nullptr;  ///< the handler
};

class PI_DATA_POINTER_AND_POINTER : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;  ///< the window
  void* pointer2 = nullptr; ///< the argument
};

class PI_DATA_POINTER_AND_INT : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  int value = 0;           ///< the argument
};

class PI_DATA_POINTER_AND_BOOL : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  bool value = false;      ///< the argument
};

class PI_DATA_POINTER_AND_DOUBLE : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  double value = 0.0;      ///< the argument
};

class PI_DATA_POINTER_AND_STRING : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  std::string text;        ///< the argument
};

class PI_DATA_POINTER_AND_FUNCTION : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;                ///< the window
  FunctorTwoParams__* function = nullptr; ///< the command
};

class PI_DATA_POINTER_AND_OPTS : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;    ///< the window
  unsigned int options = 0;   ///< option bits of the window
};

class PI_DATA_POINTER_INT_AND_BOOL : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  int value = 0;           ///< first argument
  bool flag = false;       ///< second argument
};

class PI_DATA_POINTER_INT_AND_STRING : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  int value = 0;           ///< first argument
  std::string text;        ///< second argument
};

class PI_DATA_POINTER_INT_AND_FUNCTION : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;                ///< the window
  int value = 0;                          ///< first argument
  FunctorTwoParams__* function = nullptr; ///< the command
};

class PI_DATA_POINTER_POINTER_AND_INT : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;  ///< the window
  void* pointer2 = nullptr; ///< first argument
  int value = 0;            ///< second argument
};

class PI_DATA_POINTER_STRING_AND_FUNCTION : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr;                ///< the parent window or menu
  std::string text;                       ///< the label
  FunctorTwoParams__* function = nullptr; ///< the command
};

class PI_DATA_POINTER_STRING_AND_STRING : public PI_DATA_BASE_CLASS
{
public:
  void* pointer = nullptr; ///< the window
  std::string text;        ///< first argument
  std::string text2;       ///< second argument
};
