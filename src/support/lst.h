// Lst: a doubly linked list of values.
#pragma once

#include "com/base.h"

#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

namespace tv {

/// Holds values in order. Nodes come from the system's task allocator. Destroying a list destroys its elements from the
/// head on.
template <typename T> class Lst
{
    struct Node
    {
        T value;
        Node* next;
        Node* previous;
    };

  public:
    template <typename Value> class Cursor
    {
      public:
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Value*;
        using reference = Value&;

        Cursor() = default;
        reference operator*() const { return node->value; }
        pointer operator->() const { return &node->value; }
        Cursor& operator++()
        {
            node = node->next;
            return *this;
        }
        Cursor operator++(int)
        {
            Cursor old = *this;
            ++*this;
            return old;
        }
        Cursor& operator--()
        {
            node = node == nullptr ? list->tail : node->previous;
            return *this;
        }
        Cursor operator--(int)
        {
            Cursor old = *this;
            --*this;
            return old;
        }
        friend bool operator==(const Cursor& left, const Cursor& right) { return left.node == right.node; }

      private:
        friend class Lst;
        Cursor(const Lst* owner, Node* at) : list(owner), node(at) {}
        const Lst* list = nullptr;
        Node* node = nullptr;
    };
    using iterator = Cursor<T>;
    using const_iterator = Cursor<const T>;

    Lst() = default;
    Lst(const Lst&) = delete;
    Lst& operator=(const Lst&) = delete;
    Lst(Lst&& other) noexcept
        : head(std::exchange(other.head, nullptr)), tail(std::exchange(other.tail, nullptr)),
          count(std::exchange(other.count, 0))
    {}
    Lst& operator=(Lst&& other) noexcept
    {
        if (this != &other) {
            Clear();
            head = std::exchange(other.head, nullptr);
            tail = std::exchange(other.tail, nullptr);
            count = std::exchange(other.count, 0);
        }
        return *this;
    }
    virtual ~Lst() { Clear(); }

    /// Appends a value. Raises std::bad_alloc and leaves the list as it was when there is no memory.
    void AddTail(T value)
    {
        void* memory = CoTaskMemAlloc(sizeof(Node));
        if (memory == nullptr) {
            throw std::bad_alloc();
        }
        Node* node = new (memory) Node{std::move(value), nullptr, tail};
        (tail == nullptr ? head : tail->next) = node;
        tail = node;
        ++count;
    }

    /// Takes the first value out and returns it. Raises std::out_of_range on an empty list.
    T RemoveHead()
    {
        if (head == nullptr) {
            throw std::out_of_range("the list is empty");
        }
        T value = std::move(head->value);
        DropHead();
        return value;
    }

    void Clear()
    {
        while (head != nullptr) {
            DropHead();
        }
    }

    uint32_t Count() const { return count; }
    bool IsEmpty() const { return head == nullptr; }
    /// First and last value, null when the list is empty.
    T* Head() { return head == nullptr ? nullptr : &head->value; }
    const T* Head() const { return head == nullptr ? nullptr : &head->value; }
    T* Tail() { return tail == nullptr ? nullptr : &tail->value; }
    const T* Tail() const { return tail == nullptr ? nullptr : &tail->value; }

    iterator begin() { return iterator(this, head); }
    iterator end() { return iterator(this, nullptr); }
    const_iterator begin() const { return const_iterator(this, head); }
    const_iterator end() const { return const_iterator(this, nullptr); }

  private:
    void DropHead()
    {
        Node* node = head;
        head = node->next;
        (head == nullptr ? tail : head->previous) = nullptr;
        --count;
        std::destroy_at(node);
        CoTaskMemFree(node);
    }

    Node* head = nullptr;
    Node* tail = nullptr;
    uint32_t count = 0;
};

} // namespace tv
