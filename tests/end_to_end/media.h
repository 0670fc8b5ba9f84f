// A product's installation media in a scratch folder, and what was started from there.
#pragma once

#include <string>
#include <vector>

/// One run of a stand-in program; times in milliseconds.
struct Record {
    std::string program = {};     ///< full path
    std::string parameters = {};  ///< the command line behind the program, as received
    long long started = 0;
    long long ended = 0;
};

class Media {
  public:
    /// With a "Setup.Exe" that records its command line.
    explicit Media(const std::string& folderName = "media");
    /// Removes everything.
    ~Media();
    Media(const Media&) = delete;
    Media& operator=(const Media&) = delete;

    /// Full path of a file on the media.
    std::string path(const std::string& name) const { return folder + name; }
    /// Lays out the installer stamped for a product; returns its path.
    std::string installer(const std::string& code, const std::string& name = "Install.exe") const;

    /// What the stand-ins were started with, in the order of their starts.
    std::vector<Record> records() const;
    /// The same, each as "program parameters".
    std::vector<std::string> started() const;
    /// Waits until so many programs have been started.
    void awaitRecords(size_t count) const;
    /// Forgets the records so far.
    void forgetRecords() const;

    std::string scratch;  ///< folder around the media, for other files; ends in a backslash
    std::string folder;   ///< ends in a backslash
};

void makeFolder(const std::string& path);
void removeFolder(const std::string& path);
void writeFile(const std::string& path, const std::string& content);
std::string readFile(const std::string& path);
bool fileExists(const std::string& path);
/// A copy of a file that lies beside the tests, its folder made.
void layOutFile(const std::string& name, const std::string& path);
/// A recording program under this path, its folder made; `script` as the recorder describes it.
void layOutStandIn(const std::string& path, const std::string& script = "");
