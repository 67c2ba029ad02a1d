// The common root of the class library.

#ifndef QUILLKIT_BASE_ROOT_OBJECT_H_
#define QUILLKIT_BASE_ROOT_OBJECT_H_

#include "base/class_record.h"

namespace quillkit {

class Archive;

class RootObject {
 public:
  RootObject() = default;
  RootObject(const RootObject&) = delete;
  RootObject& operator=(const RootObject&) = delete;

  // The virtual functions have this order in every class.
  virtual const ClassRecord* GetRuntimeClass() const = 0;
  virtual ~RootObject() = default;

  // Stores the object in the archive or loads it, according to the archive's direction. The default
  // does nothing.
  virtual void Serialize(Archive& archive);

  // Diagnostics for a debugger or a subclass. The defaults do nothing.
  virtual void AssertValid() const;
  virtual void Describe() const;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ROOT_OBJECT_H_
