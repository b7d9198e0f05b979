#include "lists/ListedAddress.h"

namespace quillary::lists {

QString ListedAddress(const Record& client) {
  return client[u"Suburb"].ToText() + u' ' + client[u"Post_Code"].ToText() + u' ' +
         client[u"Street"].ToText() + u' ' + client[u"Street_Number"].ToText();
}

}  // namespace quillary::lists
