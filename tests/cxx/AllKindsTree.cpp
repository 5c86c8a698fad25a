#include "AllKindsTree.h"

AllKindsTree::AllKindsTree()
{
    using PT = AST_PredefinedType;
    AST_Root* root = tree.root();
    m = tree.module(root, "M");
    AST_Type* lng = tree.pre(PT::PT_long);
    AST_String* str = tree.anon<AST_String>(root, false, 0, false);
    AST_String* wstr = tree.anon<AST_String>(root, true, 0, false);

    AST_Structure* fix = tree.structure(m, "FixS", {{lng, "a"}});
    AST_Structure* var = tree.structure(m, "VarS", {{str, "s"}});
    AST_Union* uni = tree.add<AST_Union>(m, Identifier("U"), lng);
    tree.add<AST_UnionBranch>(uni, std::vector<AST_UnionLabel>{}, lng, Identifier("x"));
    AST_Enum* en = tree.add<AST_Enum>(m, Identifier("E"));
    AST_Sequence* seq = tree.anon<AST_Sequence>(m, lng, 0);
    AST_Typedef* long_seq = tree.typedef_(m, seq, "LongSeq");
    AST_Typedef* long_seq2 = tree.typedef_(m, long_seq, "LongSeq2");
    AST_Typedef* long_arr = tree.typedef_(m, tree.anon<AST_Array>(m, Identifier("LongArr"), lng, std::vector<unsigned long>{4}), "LongArr");
    AST_Typedef* str_arr = tree.typedef_(m, tree.anon<AST_Array>(m, Identifier("StrArr"), str, std::vector<unsigned long>{2}), "StrArr");
    AST_Typedef* money = tree.typedef_(m, tree.anon<AST_Fixed>(m, 5u, 2u), "Money");
    AST_Typedef* my_long = tree.typedef_(m, lng, "MyLong");
    AST_Typedef* my_string = tree.typedef_(m, str, "MyString");
    other = tree.interface(m, "Other");
    value = tree.add<AST_Value>(m, Identifier("V"), false, false);
    native = tree.add<AST_Native>(m, Identifier("N"));
    AST_Object* object = tree.anon<AST_Object>(root);
    AST_ValueBase* value_base = tree.anon<AST_ValueBase>(root);

    kinds = {{"long", lng},
             {"ulonglong", tree.pre(PT::PT_ulonglong)},
             {"boolean", tree.pre(PT::PT_boolean)},
             {"string", str},
             {"wstring", wstr},
             {"any", tree.pre(PT::PT_any)},
             {"fix", fix},
             {"var", var},
             {"union", uni},
             {"enum", en},
             {"seq", long_seq},
             {"seq2", long_seq2},
             {"arr", long_arr},
             {"vararr", str_arr},
             {"fixed", money},
             {"object", object},
             {"intf", other},
             {"value", value},
             {"valuebase", value_base},
             {"typecode", tree.pre(PT::PT_typecode)},
             {"mylong", my_long},
             {"mystring", my_string}};

    i = tree.interface(m, "I");
    for (const auto& k : kinds)
        tree.operation(i, k.second, ("op_" + k.first).c_str(),
                       {arg_in(k.second, "a"), arg_inout(k.second, "b"), arg_out(k.second, "c")});
    tree.operation(i, tree.pre(PT::PT_void), "op_void");
    bounded = tree.anon<AST_String>(i, false, 10, true);
    tree.operation(i, bounded, "op_bounded", {arg_in(bounded, "a")});
    tree.attribute(i, true, lng, "ro");
    tree.attribute(i, false, var, "rw");
}

AST_Type* AllKindsTree::type(const std::string& kind) const
{
    for (const auto& k : kinds)
        if (k.first == kind)
            return k.second;
    return nullptr;
}
