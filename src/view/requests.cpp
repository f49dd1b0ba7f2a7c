#include "view/requests.h"

#include "view/screen_point.h"

void RequestInfoTip(IQVLTreeView& view, IQVLTreeView* owner, IQVLTreeViewClient* client,
                    ViewLife& life, ItemHandle item, WCHAR*& text, int& length) {
  LifeWatch alive(life);
  const POINT point = LastMessagePoint();
  std::uint32_t hitFlags = 0;
  view.HitTest(&point, false, &hitFlags);
  WCHAR* clientText = nullptr;
  int clientLength = 0;
  if (!client->OnGetInfoTip(owner, item, &clientText, &clientLength, hitFlags) || !alive) return;
  text = clientText;
  length = clientLength;
}

void RequestContextMenu(IQVLTreeView& view, IQVLTreeView* owner, IQVLTreeViewClient* const& client,
                        ViewLife& life, LPARAM position) {
  LifeWatch alive(life);
  const POINT point = PointFromParam(position);
  std::uint32_t hitFlags = 0;
  const ItemHandle item = view.HitTest(&point, true, &hitFlags);
  if (alive && client) client->OnContextMenu(owner, point.x, point.y, item, hitFlags);
}

LRESULT RequestLabelEdit(IQVLTreeView* owner, IQVLTreeViewClient* client, NMHDR& record) {
  return client->OnLabelEdit(owner, &record, record.code) ? 1 : 0;
}
