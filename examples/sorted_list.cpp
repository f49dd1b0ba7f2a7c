// A list with columns. A click on a title sorts by that column, a second click the other way round.
#include <qvl_host.h>

#include <string>

namespace {

struct Planet {
  const wchar_t* name;
  int diameter;  // kilometres
  int moons;
};

constexpr Planet kPlanets[] = {{L"Mercury", 4879, 0},    {L"Venus", 12104, 0},
                               {L"Earth", 12756, 1},     {L"Mars", 6792, 2},
                               {L"Jupiter", 142984, 95}, {L"Saturn", 120536, 146},
                               {L"Uranus", 51118, 28},   {L"Neptune", 49528, 16}};

constexpr qvl::Column kColumns[] = {
    {L"Planet", 120}, {L"Diameter", 100, LVCFMT_RIGHT}, {L"Moons", 80, LVCFMT_RIGHT}};

// A row's client value is the index of its planet.
class Client final : public qvl::Client {
 public:
  bool OnCreateColumns(IQVLTreeView*, HWND list, RECT*) override {
    qvl::InsertColumns(list, kColumns);
    return true;
  }

  void OnColumnClick(IQVLTreeView* view, int column) override {
    descending = column == sortedBy && !descending;
    sortedBy = column;
    qvl::SortRows(*view, [this](std::int64_t a, std::int64_t b) {
      return descending ? IsLess(kPlanets[b], kPlanets[a]) : IsLess(kPlanets[a], kPlanets[b]);
    });
    qvl::ShowSortArrow(*view, column, descending);
  }

 private:
  bool IsLess(const Planet& a, const Planet& b) const {
    if (sortedBy == 0) return lstrcmpiW(a.name, b.name) < 0;
    return sortedBy == 1 ? a.diameter < b.diameter : a.moons < b.moons;
  }

  int sortedBy = -1;
  bool descending = false;
};

void Fill(IQVLTreeView& view) {
  QVLTreeViewItem record;
  for (std::int64_t index = 0; index < std::ssize(kPlanets); ++index) {
    const Planet& planet = kPlanets[index];
    record.SetSubItem(0);
    record.SetItemName(planet.name);
    record.SetClientPtr(index);
    const ItemHandle row = view.InsertItem(&record, -1);
    record.SetSubItem(1);
    record.SetItemName(std::to_wstring(planet.diameter).c_str());
    view.InsertItem(&record, row);
    record.SetSubItem(2);
    record.SetItemName(std::to_wstring(planet.moons).c_str());
    view.InsertItem(&record, row);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  const HWND window = CreateWindowExW(0, L"STATIC", L"Planets", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                      100, 100, 340, 260, nullptr, nullptr, instance, nullptr);
  Client client;
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  RECT area{};
  GetClientRect(window, &area);
  if (!view->Create(window, 1, 0, 0, area.right, area.bottom, QVLS_LISTVIEW | QVLS_SORTHEADER,
                    nullptr)) {
    return 1;
  }
  Fill(*view);

  MSG message;
  while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
