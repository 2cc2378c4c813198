#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <opencv2/core.hpp>
#include <vector>

/// Results as numpy arrays and tuples that share the memory of what they are of, and keep it alive.
namespace binding {

/// `count` values that lie `stride` bytes apart, as a read-only array. `owner` keeps them alive.
template <typename Value>
pybind11::array viewOf(const Value* first, std::size_t count, std::size_t stride, pybind11::handle owner) {
  pybind11::array array(pybind11::dtype::of<Value>(), {static_cast<pybind11::ssize_t>(count)},
                        {static_cast<pybind11::ssize_t>(stride)}, first, owner);
  array.attr("setflags")(pybind11::arg("write") = false);
  return array;
}

template <typename Value>
pybind11::array viewOf(const std::vector<Value>& values, pybind11::handle owner) {
  return viewOf(values.data(), values.size(), sizeof(Value), owner);
}

/// A picture as an array of rows x columns, with a third axis for the channels of colour. It shares the pixels.
pybind11::array viewOf(const cv::Mat& picture);

/// A read-only property that is such a view of a list.
template <typename Class, typename Owner, typename Value>
void defColumn(Class& type, const char* name, std::vector<Value> Owner::*member, const char* doc) {
  using Bound = typename Class::type;
  type.def_property_readonly(
      name, [member](const pybind11::object& self) { return viewOf(self.cast<const Bound&>().*member, self); }, doc);
}

/// A read-only property of one member of each record of a list.
template <typename Class, typename Owner, typename Record, typename Value>
void defColumn(Class& type, const char* name, std::vector<Record> Owner::*list, Value Record::*member,
               const char* doc) {
  using Bound = typename Class::type;
  type.def_property_readonly(
      name,
      [list, member](const pybind11::object& self) {
        const std::vector<Record>& records = self.cast<const Bound&>().*list;
        const Value* const first = records.empty() ? nullptr : &(records.front().*member);
        return viewOf(first, records.size(), sizeof(Record), self);
      },
      doc);
}

/// Records as a tuple, each by reference; `owner` keeps them alive.
template <typename Record>
pybind11::tuple tupleOf(const std::vector<Record>& records, pybind11::handle owner) {
  pybind11::tuple all(records.size());
  for (std::size_t k = 0; k < records.size(); ++k)
    all[k] = pybind11::cast(&records[k], pybind11::return_value_policy::reference_internal, owner);
  return all;
}

template <typename Class, typename Owner, typename Record>
void defTuple(Class& type, const char* name, std::vector<Record> Owner::*member, const char* doc) {
  using Bound = typename Class::type;
  type.def_property_readonly(
      name, [member](const pybind11::object& self) { return tupleOf(self.cast<const Bound&>().*member, self); }, doc);
}

/// A record by reference; None where there is none.
template <typename Record>
pybind11::object referenceTo(const Record* record, pybind11::handle owner) {
  if (record == nullptr) return pybind11::none();
  return pybind11::cast(record, pybind11::return_value_policy::reference_internal, owner);
}

}  // namespace binding
