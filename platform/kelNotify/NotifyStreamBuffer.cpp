#include "kelNotify/NotifyStreamBuffer.h"

#include "kelNotify/Notify.h"

namespace kelNotify
{

int NotifyStreamBuffer::overflow(int c)
{
  if (c == traits_type::eof())
    return traits_type::not_eof(c);
  if (c == '\n')
    send_();
  else
    line_ += static_cast<char>(c);
  return c;
}

int NotifyStreamBuffer::sync()
{
  if (!line_.empty())
    send_();
  return 0;
}

void NotifyStreamBuffer::send_()
{
  if (auto handler = notifyHandler())
    handler->notify(severity_, line_);
  line_.clear();
}

} // namespace kelNotify
