#pragma once

#include <plix/platform/appkit/nib/nib_document.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

class CFXMLTree;

/// Turns the elements of an interface file into a NibDocument. The first thing that refuses the document is kept; what comes after
/// that is read in vain.
class NibParser {
public:
    explicit NibParser(NibDocument& document)
        : m_document(document)
    {
    }

    /// The document's element.
    void parse(CFXMLTree const&);
    std::string const& problem() const { return m_problem; }

    // For those who read elements.
    /// The element as an object of that role; null in a document that is refused. The path is for keys of texts, where the element
    /// has no id.
    NibObject* object(CFXMLTree const& element, std::string_view role, std::string const& path);
    /// Kept under the key when all objects are known. The strings live as long as the program.
    void reference(NibObject& from, std::string_view key, std::string const& id, std::string_view role);
    void refuse(std::string const& where, std::string const& reason);
    void warn(std::string const& where, std::string const& what);

private:
    struct Reference {
        NibObject* from;
        std::string_view key;
        std::string id;
        std::string_view role;
    };
    struct LooseConnection {
        NibObject* source;
        NibConnection connection;
        std::string destination;
    };

    void readConnections(CFXMLTree const& element, NibObject&);
    void readConnection(CFXMLTree const& element, NibObject&);
    void readProperties(CFXMLTree const& element, NibObject&);
    void readProperty(CFXMLTree const& element, NibObject&);
    void enterID(NibObject&);
    void resolve();

    NibDocument& m_document;
    std::vector<Reference> m_references;
    std::vector<LooseConnection> m_connections;
    std::string m_problem;
};

}
