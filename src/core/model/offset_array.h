// Arrays whose index is a cell number.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "core/model/wide_vectors.h"

// An array whose indices run from First() to Last(), both included. Index i is a cell number, not
// a distance from the start of the storage. Every element starts at zero. Fresh storage costs no
// time and no memory until it is written: the system hands out zero pages on first touch, so that
// allocating a store of two thousand states of a large grid takes no time. Element 1, the first
// real cell, stands at the start of a cache line, so that loops from there on load and store whole
// ones.
template <typename T>
class OffsetArray {
public:
    OffsetArray() = default;
    OffsetArray(int first, int last)
        : first_(first), size_(static_cast<std::size_t>(last - first + 1)) {
        Allocate();
    }

    OffsetArray(const OffsetArray& other) : first_(other.first_), size_(other.size_) {
        Allocate();
        std::copy_n(other.values_, size_, values_);
    }
    OffsetArray(OffsetArray&& other) noexcept { Swap(other); }
    OffsetArray& operator=(OffsetArray other) noexcept {
        Swap(other);
        return *this;
    }
    ~OffsetArray() = default;

    int First() const { return first_; }
    int Last() const { return first_ + static_cast<int>(size_) - 1; }

    T& operator[](int i) { return values_[Slot(i)]; }
    const T& operator[](int i) const { return values_[Slot(i)]; }

    // The address of element i, for a library that takes it from there.
    T* At(int i) { return &values_[Slot(i)]; }
    const T* At(int i) const { return &values_[Slot(i)]; }

    // New bounds with the same First(). Elements first..keepLast keep their values as far as both
    // bounds hold them; all others are zero.
    void Resize(int last, int keepLast) {
        OffsetArray grown(first_, last);
        const int end = std::min({keepLast, Last(), last});
        if (end >= first_) {
            std::copy_n(values_, static_cast<std::size_t>(end - first_ + 1), grown.values_);
        }
        Swap(grown);
    }
    void Resize(int last) { Resize(last, last); }

private:
    struct Free {
        void operator()(std::byte* storage) const { std::free(storage); }
    };

    // Zeroed storage for size_ elements, so placed in it that element 1 begins a cache line.
    void Allocate() {
        if (size_ == 0) return;
        storage_.reset(
            static_cast<std::byte*>(std::calloc(size_ + CacheLine / sizeof(T), sizeof(T))));
        if (storage_ == nullptr) throw std::bad_alloc();
        const auto element1 = reinterpret_cast<std::uintptr_t>(storage_.get()) +
                              static_cast<std::uintptr_t>(1 - first_) * sizeof(T);
        values_ = reinterpret_cast<T*>(storage_.get() + (0 - element1) % CacheLine);
    }

    void Swap(OffsetArray& other) noexcept {
        std::swap(first_, other.first_);
        std::swap(size_, other.size_);
        std::swap(storage_, other.storage_);
        std::swap(values_, other.values_);
    }

    std::size_t Slot(int i) const {
        assert(First() <= i && i <= Last());
        return static_cast<std::size_t>(i - first_);
    }

    int first_ = 0;
    std::size_t size_ = 0;
    std::unique_ptr<std::byte[], Free> storage_;
    T* values_ = nullptr;  // element First(), somewhere in the first line of the storage
};
