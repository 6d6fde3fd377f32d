#ifndef ZOV_UTILS_ZOV_SHARED_ARRAY_H
#define ZOV_UTILS_ZOV_SHARED_ARRAY_H

#include <cstddef>
#include <new>
#include <utility>

#include <boost/bind/bind.hpp>
#include <boost/checked_delete.hpp>
#include <boost/function.hpp>
#include <boost/smart_ptr/shared_array.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

/// A growable array with shared ownership and copy on write.
///
/// Copies share one storage until one of them is changed. The storage carries
/// its own deleters, created by the code that filled it, so a copy may cross a
/// library boundary and outlive the object that filled it. The reference counts
/// are atomic, the array isn't: each copy must be used by one thread at a time.
///
/// `T` needs a copy constructor, which may throw, and a destructor that doesn't
/// throw. Operations take constant time unless they say otherwise.
template <class T>
class zov_shared_array {
 public:
  typedef T value_type;             ///< what the array holds
  typedef const T* const_iterator;  ///< a position in the array

  /// An empty array without storage.
  zov_shared_array() : size_(0), capacity_(0) {}

  /// Shares the storage of `other`.
  zov_shared_array(const zov_shared_array& other)
      : storage_(other.storage_),
        size_(other.size_),
        capacity_(other.capacity_),
        elements_(other.elements_) {}

  /// Shares the storage of `other` and releases its own. Time is linear in the
  /// number of elements if no other copy shares the released storage.
  zov_shared_array& operator=(const zov_shared_array& other) {
    zov_shared_array copy(other);
    swap(copy);
    return *this;
  }

  /// Exchanges the storages. Doesn't throw.
  void swap(zov_shared_array& other) {
    storage_.swap(other.storage_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
    elements_.swap(other.elements_);
  }

  /// The number of elements.
  std::size_t size() const { return size_; }

  /// The number of elements that the storage has room for.
  std::size_t capacity() const { return capacity_; }

  /// Whether there are no elements.
  bool empty() const { return size_ == 0; }

  /// The elements are contiguous. Positions are valid until the array is changed.
  const_iterator begin() const { return address(storage_, 0); }
  const_iterator end() const { return begin() + size_; }

  /// The element at `index`, which must be below size().
  const T& operator[](std::size_t index) const { return begin()[index]; }

  /// Empties the array. Storage shared with another copy is released unchanged.
  /// Otherwise the storage is kept and its elements are destroyed, which takes
  /// linear time.
  void clear() {
    if (shared()) {
      zov_shared_array().swap(*this);
      return;
    }
    elements_.reset();
    size_ = 0;
  }

  /// Appends a copy of `value`, which may be an element of this array. Storage that
  /// is shared or full is replaced by a new one with the capacity size + 1 + size / 2,
  /// into which all elements are copied. If an exception is thrown, the array is
  /// unchanged. Takes amortized constant time, or linear time if the storage is shared.
  void push_back(const T& value) {
    if (shared() || size_ == capacity_ || !can_disarm()) {
      zov_shared_array grown(size_ + 1 + size_ / 2);
      for (std::size_t i = 0; i < size_; ++i) grown.append((*this)[i]);
      grown.append(value);
      swap(grown);
    } else {
      append(value);
    }
  }

 private:
  struct cell {
    alignas(T) unsigned char bytes[sizeof(T)];
  };
  typedef boost::function<void(T*)> element_deleter;

  explicit zov_shared_array(std::size_t capacity)
      : storage_(new cell[capacity], boost::checked_array_deleter<cell>()),
        size_(0),
        capacity_(capacity) {}

  static T* address(const boost::shared_array<cell>& storage, std::size_t index) {
    return storage ? reinterpret_cast<T*>(storage.get() + index) : 0;
  }

  static void keep(T*) {}

  static void destroy(T* first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) first[i].~T();
  }

  bool shared() const { return storage_.use_count() > 1; }

  // Without run-time type information, a handle created on the other side of a library
  // boundary may not be recognised here. Its storage is then replaced by a copy.
  bool can_disarm() const {
    return !elements_ || boost::get_deleter<element_deleter>(elements_) != 0;
  }

  // Adds a copy of `value` after the last element; there must be room. Replaces the
  // handle that destroys the elements by one with the larger count. The new handle is
  // armed only when nothing can fail any more. The old one is disarmed before: its
  // release must not destroy elements that are still in use.
  void append(const T& value) {
    boost::shared_ptr<T> grown(address(storage_, 0), element_deleter(&zov_shared_array::keep));
    element_deleter destroy_all(
        boost::bind(&zov_shared_array::destroy, boost::placeholders::_1, size_ + 1));
    new (address(storage_, size_)) T(value);
    if (element_deleter* old = boost::get_deleter<element_deleter>(elements_))
      *old = &zov_shared_array::keep;
    boost::get_deleter<element_deleter>(grown)->swap(destroy_all);
    elements_.swap(grown);
    ++size_;
  }

  boost::shared_array<cell> storage_;
  std::size_t size_;
  std::size_t capacity_;
  boost::shared_ptr<T> elements_;  // declared after storage_: elements are destroyed before it
};

#endif
