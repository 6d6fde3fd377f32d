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
/// its own deleters, made where it was filled, so a copy may cross a library
/// boundary and outlive the object that filled it. Counts are atomic, the array
/// itself isn't: one copy serves one thread at a time.
///
/// `T` needs a copy constructor that may throw and a destructor that doesn't.
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

  /// Shares the storage of `other` and lets go of its own.
  zov_shared_array& operator=(const zov_shared_array& other) {
    zov_shared_array copy(other);
    swap(copy);
    return *this;
  }

  /// Exchanges the storages. Throws nothing.
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

  /// The elements, contiguous; valid until the array is changed.
  const_iterator begin() const { return address(storage_, 0); }
  const_iterator end() const { return begin() + size_; }

  /// The element at `index`, which must be below size().
  const T& operator[](std::size_t index) const { return begin()[index]; }

  /// Makes the array empty. Storage shared with another copy is let go of and
  /// left as it is; storage of its own loses its elements and is kept.
  void clear() {
    if (shared()) {
      zov_shared_array().swap(*this);
      return;
    }
    elements_.reset();
    size_ = 0;
  }

  /// Appends a copy of `value`, which may be an element of this array. Storage
  /// that is shared or full is replaced by one of capacity size + 1 + size / 2.
  /// When an exception is thrown the array is as it was.
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

  // A handle that was made across a library border may not be recognised here, for
  // want of run-time type information. Its storage is then left as it is.
  bool can_disarm() const {
    return !elements_ || boost::get_deleter<element_deleter>(elements_) != 0;
  }

  // Puts a copy of `value` behind the last element; there must be room. The
  // handle on the elements is made anew with the larger count. It is armed only
  // when nothing can fail any more, and the old one is disarmed first: letting
  // go of it must not destroy elements that live on.
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
  boost::shared_ptr<T> elements_;  // behind storage_: the elements go before their storage
};

#endif
