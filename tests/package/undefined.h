// Declarations that no library defines, which scripts/check_declarations has to find.

#ifndef QUILLKIT_TESTS_PACKAGE_UNDEFINED_H_
#define QUILLKIT_TESTS_PACKAGE_UNDEFINED_H_

namespace quillkit {

void UndefinedFunction();  // undefined

class UndefinedMembers {
 public:
  UndefinedMembers();  // undefined
  virtual ~UndefinedMembers() = default;
  virtual void Pure() = 0;
  void Inline() { Hidden(); }
  void DefinedBelow();

 private:
  void Hidden();             // undefined
  static const int kNumber;  // undefined
};

inline void UndefinedMembers::DefinedBelow() {}

template <class Value>
class UndefinedTemplate {
 public:
  Value Get() const;  // undefined
  Value Twice() const { return Get() + Get(); }
};

extern template class UndefinedTemplate<int>;

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PACKAGE_UNDEFINED_H_
