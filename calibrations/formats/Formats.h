#pragma once

#include <array>
#include <string>
#include <vector>

#include "calibrations/document/Document.h"
#include "calibrations/formats/SourcePair.h"

/// One reader a format. Each throws `polarline::InputError` for what it does not hold, or holds and ours can't.
namespace calibrations {

using Documents = std::vector<Document>;

/// M1 D1 M2 D2 R T and their relatives, in up to three files.
SourcePair readOpenCv(const Documents& documents, const polarline::ImportOptions& options);
/// The camera information files of two cameras.
SourcePair readRos(const Documents& documents, const polarline::ImportOptions& options);
/// A camchain.
SourcePair readKalibr(const Documents& documents, const polarline::ImportOptions& options);
SourcePair readBasalt(const Documents& documents, const polarline::ImportOptions& options);
/// Two camera models.
SourcePair readMrcal(const Documents& documents, const polarline::ImportOptions& options);
/// The sensor files of two cameras.
SourcePair readEuroc(const Documents& documents, const polarline::ImportOptions& options);
/// Our own JSON.
SourcePair readOurs(const Documents& documents, const polarline::ImportOptions& options);

struct Format {
  const char* name;
  SourcePair (*read)(const Documents&, const polarline::ImportOptions&);
};

/// The formats by the names that an option has for them.
inline constexpr std::array<Format, 7> kFormats = {{{"opencv", readOpenCv},
                                                    {"ros", readRos},
                                                    {"kalibr", readKalibr},
                                                    {"basalt", readBasalt},
                                                    {"mrcal", readMrcal},
                                                    {"euroc", readEuroc},
                                                    {"polarline", readOurs}}};

/// The format of that name, or, for an empty one, of the content. Throws `polarline::InputError`.
const Format& formatOf(const Documents& documents, const std::string& name);

}  // namespace calibrations
