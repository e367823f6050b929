#pragma once

#include "host/FunctorTwoParams__.h"
#include "host/PluginGlobals.h"

/**
 * @brief A command that calls a member function of T.
 *
 * Functors made with create() belong to g_FunctorList and are deleted by SPI_CleanUpPlugin.
 */
template <typename T>
class CustomCallbackFunctor : public FunctorTwoParams__
{
public:
  /// A member function of T that serves a host command.
  using Member = int (T::*)(PIObject*, void*);

  /// Makes a functor calling member on object. Neither is owned.
  CustomCallbackFunctor(T* object, Member member) : member_(member), object_(object) {}

  /// Makes a functor and hands it to g_FunctorList, which owns it from then on.
  static CustomCallbackFunctor* create(T* object, Member member)
  {
    auto* functor = new CustomCallbackFunctor(object, member);
    g_FunctorList.push_back(functor);
    return functor;
  }

  int operator()(PIObject* sender, void* data) override { return (object_->*member_)(sender, data); }
  int Call(PIObject* sender, void* data) override { return (object_->*member_)(sender, data); }

private:
  Member member_;
  T* object_;
};
