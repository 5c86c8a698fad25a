// One label of a union branch: "default" or "case" with its value.
#ifndef AST_UNIONLABEL_H
#define AST_UNIONLABEL_H

#include "AST_Expression.h"

class AST_UnionLabel {
public:
    enum LabelKind { UL_default, UL_label };

    AST_UnionLabel() : m_kind(UL_default) {}
    explicit AST_UnionLabel(AST_Expression value) : m_kind(UL_label), m_value(std::move(value)) {}

    LabelKind label_kind() const { return m_kind; }
    // The evaluated label value; meaningless for the default label.
    const AST_Expression& label_val() const { return m_value; }

private:
    LabelKind m_kind;
    AST_Expression m_value;
};

#endif
