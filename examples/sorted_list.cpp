// A list with columns. A click on a title sorts by that column, a second click the other way round.
#include "frame.h"

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

// Sets the text of a further cell of the row.
void SetCell(IQVLTreeView& view, ItemHandle row, int column, int number) {
  QVLTreeViewItem cell;
  cell.SetSubItem(column);
  cell.SetItemName(std::to_wstring(number).c_str());
  view.InsertItem(&cell, row);
}

void Fill(IQVLTreeView& view) {
  const qvl::DrawingPause pause(view);
  QVLTreeViewItem record;
  for (std::int64_t index = 0; index < std::ssize(kPlanets); ++index) {
    const Planet& planet = kPlanets[index];
    record.SetItemName(planet.name);
    record.SetClientPtr(index);
    const ItemHandle row = view.InsertItem(&record, -1);
    SetCell(view, row, 1, planet.diameter);
    SetCell(view, row, 2, planet.moons);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Frame frame(L"Planets", 340, 190);
  Client client;
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  if (!frame.Show(*view, QVLS_LISTVIEW | QVLS_SORTHEADER)) return 1;
  Fill(*view);

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
