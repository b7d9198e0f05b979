#include "pdf/faces/FaceFile.h"

#include "pdf/PDFTypes.h"

#include <hb-ot.h>
#include <hb-subset.h>

#include <algorithm>
#include <cmath>

namespace quillary {
namespace {

using Blob = std::unique_ptr<hb_blob_t, HarfBuzzDeleter<hb_blob_destroy>>;
using Buffer = std::unique_ptr<hb_buffer_t, HarfBuzzDeleter<hb_buffer_destroy>>;
using SubsetInput = std::unique_ptr<hb_subset_input_t, HarfBuzzDeleter<hb_subset_input_destroy>>;
using SubsetPlan = std::unique_ptr<hb_subset_plan_t, HarfBuzzDeleter<hb_subset_plan_destroy>>;

int Rounded(double number) {
  return static_cast<int>(std::lround(number));
}

/// The table "head" holds the box around all glyphs as four whole numbers of two bytes.
struct Box {
  double left, bottom, right, top;
};
Box BoxOf(hb_face_t* face) {
  constexpr unsigned kAt = 36;
  const Blob head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')));
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(head.get(), &length);
  if (length < kAt + 8) return {0, 0, 0, 0};
  const auto number = [&](unsigned index) {
    const auto high = static_cast<unsigned char>(bytes[kAt + 2 * index]);
    const auto low = static_cast<unsigned char>(bytes[kAt + 2 * index + 1]);
    return static_cast<double>(static_cast<std::int16_t>(high << 8 | low));
  };
  return {number(0), number(1), number(2), number(3)};
}

std::string NameOf(hb_face_t* face) {
  char name[128];
  unsigned size = sizeof name;
  hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name);
  std::string clean(name, std::min<std::size_t>(size, sizeof name - 1));
  std::erase_if(clean,
                [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '-'; });
  return clean.empty() ? "Face" : clean;
}

}  // namespace

FaceFile::FaceFile(const std::filesystem::path& file) : file_(file) {
  const Blob blob(hb_blob_create_from_file_or_fail(file.c_str()));
  if (blob) face_.reset(hb_face_create(blob.get(), 0));
  if (!face_ || hb_face_get_glyph_count(face_.get()) == 0)
    throw PDFError("The face '" + file.string() + "' can't be read");
  font_.reset(hb_font_create(face_.get()));
}

bool FaceFile::Has(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(font_.get(), character, &glyph) != 0;
}

double FaceFile::InThousandths(double units) const {
  return units * 1000 / hb_face_get_upem(face_.get());
}

void FaceFile::Shape(const std::u32string& characters, const std::u32string& shown,
                     std::size_t from, std::size_t count, bool rightToLeft,
                     std::vector<PDFGlyph>& glyphs) const {
  const Buffer buffer(hb_buffer_create());
  hb_buffer_add_utf32(buffer.get(), reinterpret_cast<const std::uint32_t*>(characters.data()),
                      static_cast<int>(characters.size()), static_cast<unsigned>(from),
                      static_cast<int>(count));
  hb_buffer_set_direction(buffer.get(), rightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_guess_segment_properties(buffer.get());
  hb_shape(font_.get(), buffer.get(), nullptr, 0);

  unsigned length = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer.get(), &length);
  const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer.get(), &length);
  std::vector<std::size_t> clusters;
  for (unsigned i = 0; i < length; ++i) clusters.push_back(infos[i].cluster);
  std::sort(clusters.begin(), clusters.end());
  for (unsigned i = 0; i < length; ++i) {
    PDFGlyph glyph{.id = infos[i].codepoint,
                   .width = std::round(
                       InThousandths(hb_font_get_glyph_h_advance(font_.get(), infos[i].codepoint))),
                   .advance = InThousandths(places[i].x_advance),
                   .x = InThousandths(places[i].x_offset),
                   .y = InThousandths(places[i].y_offset),
                   .shows = {}};
    const std::size_t cluster = infos[i].cluster;
    if (i == 0 || infos[i - 1].cluster != cluster) {
      const auto next = std::upper_bound(clusters.begin(), clusters.end(), cluster);
      const std::size_t end = next == clusters.end() ? from + count : *next;
      glyph.shows = shown.substr(cluster, end - cluster);
    }
    glyphs.push_back(std::move(glyph));
  }
}

void FaceFile::ReadMetrics(PDFFontFile& cut) const {
  cut.name = NameOf(face_.get());
  hb_font_extents_t extents{};
  hb_font_get_h_extents(font_.get(), &extents);
  cut.ascent = Rounded(InThousandths(extents.ascender));
  cut.descent = Rounded(InThousandths(extents.descender));
  hb_position_t capHeight = extents.ascender;
  hb_ot_metrics_get_position(font_.get(), HB_OT_METRICS_TAG_CAP_HEIGHT, &capHeight);
  cut.capHeight = Rounded(InThousandths(capHeight));
  cut.italicAngle = Rounded(hb_style_get_value(font_.get(), HB_STYLE_TAG_SLANT_ANGLE));
  const Box box = BoxOf(face_.get());
  cut.left = Rounded(InThousandths(box.left));
  cut.bottom = Rounded(InThousandths(box.bottom));
  cut.right = Rounded(InThousandths(box.right));
  cut.top = Rounded(InThousandths(box.top));
}

PDFFontFile FaceFile::Subset(const std::vector<unsigned>& glyphs) const {
  const auto failed = [&] {
    return PDFError("The face '" + file_.string() + "' can't be cut down");
  };
  const SubsetInput input(hb_subset_input_create_or_fail());
  if (!input) throw failed();
  hb_set_t* wanted = hb_subset_input_glyph_set(input.get());
  for (const unsigned glyph : glyphs) hb_set_add(wanted, glyph);
  // The glyphs are chosen and placed already, and a page is never drawn on a coarse grid.
  hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const char* tag : {"GSUB", "GPOS", "GDEF", "kern", "morx", "DSIG", "name", "post", "STAT"})
    hb_set_add(dropped, hb_tag_from_string(tag, 4));
  hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING);
  const SubsetPlan plan(hb_subset_plan_create_or_fail(face_.get(), input.get()));
  if (!plan) throw failed();
  const HarfBuzzFace face(hb_subset_plan_execute_or_fail(plan.get()));
  if (!face) throw failed();
  const Blob blob(hb_face_reference_blob(face.get()));

  PDFFontFile cut;
  ReadMetrics(cut);
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(blob.get(), &length);
  cut.bytes.assign(bytes, length);
  const hb_map_t* mapping = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
  for (const unsigned glyph : glyphs) cut.ids.push_back(hb_map_get(mapping, glyph));
  return cut;
}

}  // namespace quillary
