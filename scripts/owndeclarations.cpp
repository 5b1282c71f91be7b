// What clang-tidy loads before it begins: leaves it nothing to look at but the declarations of this project. By itself
// it walks through all headers of the toolkit for each source, which takes nine tenths of the time, and then keeps to
// itself what it has found there.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/DeclGroup.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <vector>

namespace {

class OwnDeclarations : public clang::ASTConsumer
{
public:
    bool HandleTopLevelDecl(clang::DeclGroupRef group) override
    {
        for (clang::Decl *declaration : group) {
            if (!declaration->getASTContext().getSourceManager().isInSystemHeader(declaration->getLocation()))
                m_declarations.push_back(declaration);
        }
        return true;
    }

    void HandleTranslationUnit(clang::ASTContext &context) override { context.setTraversalScope(m_declarations); }

private:
    std::vector<clang::Decl *> m_declarations;
};

class KeepToOwnDeclarations : public clang::PluginASTAction
{
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance &, llvm::StringRef) override
    {
        return std::make_unique<OwnDeclarations>();
    }

    bool ParseArgs(const clang::CompilerInstance &, const std::vector<std::string> &) override { return true; }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<KeepToOwnDeclarations> registration("own-declarations",
                                                                             "Keeps to this project's declarations");

} // namespace
