#pragma once

/**
 * @brief Base of every server-request record.
 *
 * Every record carries a heap array of nine integers, the layout stamp, by which a host tells
 * which generation of record it was handed. The values are fixed: 0, 0, 2, 2, 2, 2, 2, 2, 0.
 */
class PI_DATA_BASE_CLASS
{
public:
  /// Number of integers in the layout stamp.
  static constexpr int STAMP_SIZE = 9;

  /// Allocates and fills the layout stamp.
  PI_DATA_BASE_CLASS() : stamp_(newStamp_()) {}
  /// Copies the stamp into a new array of its own.
  PI_DATA_BASE_CLASS(const PI_DATA_BASE_CLASS&) : stamp_(newStamp_()) {}
  /// The stamp stays this record's own; only derived fields are assigned.
  PI_DATA_BASE_CLASS& operator=(const PI_DATA_BASE_CLASS&) { return *this; }
  /// Frees the layout stamp.
  virtual ~PI_DATA_BASE_CLASS() { delete[] stamp_; }

  /// @return the layout stamp, STAMP_SIZE integers.
  const int* stamp() const { return stamp_; }

private:
  static int* newStamp_() { return new int[STAMP_SIZE]{0, 0, 2, 2, 2, 2, 2, 2, 0}; }

  int* stamp_;
};
