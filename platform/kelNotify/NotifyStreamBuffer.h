#pragma once

#include "kelNotify/NotifySeverity.h"

#include <streambuf>
#include <string>

namespace kelNotify
{

/// Collects the characters of one severity and hands each line to the current handler.
class NotifyStreamBuffer : public std::streambuf
{
public:
  explicit NotifyStreamBuffer(NotifySeverity severity) : severity_(severity) {}

protected:
  int overflow(int c) override;
  int sync() override;

private:
  void send_();

  NotifySeverity severity_;
  std::string line_;
};

} // namespace kelNotify
