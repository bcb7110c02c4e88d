#pragma once
// Where the installation's folders lie. The paths file "Paths.txt" beside the
// program keeps them as key=value lines; the class can also move a data folder.
#include <QString>
#include <QStringList>

class cPathControl {
public:
    // programFolder: where the program (and so the paths file) lies.
    // machineDataFolder: the machine-wide application-data folder; empty means the
    // platform's own (the first writable generic data location).
    // fallbackSystemFolder: the build or install tree's share/vantrel/System, used as
    // DataSystemFolder when the machine-wide one lacks the templates.
    explicit cPathControl(const QString& programFolder, const QString& machineDataFolder = QString(),
                          const QString& fallbackSystemFolder = QString());

    QString AppFolder;
    QString ProjectFolder;
    QString BackupFolder;
    QString SystemFolder;
    QString DataSystemFolder;

    // True when the paths file could be read (or created and read) at construction.
    bool pathsFileRead() const { return pathsFileRead_; }
    // Why the paths file could not be read or written, for a message; empty when all went well.
    const QString& pathsFileProblem() const { return pathsFileProblem_; }

    // Writes, closes and deletes folder/Test.dat; true when all of that worked.
    bool CanWriteToOrvaneAppPath(const QString& folder) const;
    // Mode 0 copies (remove false) or deletes (remove true) the data files of a data folder,
    // mode 1 the projects, mode 2 the backups; then saves the paths file. False on any error.
    bool CopyFilesAndFolders(const QString& source, const QString& destination, int mode, bool remove);
    // Writes the four keys to Paths.txt in SystemFolder; false when it cannot be written.
    bool SavePathSettingsFile();
    // The text behind the last "."; "" when there is none.
    static QString GetFileExtension(const QString& name);
    // Copies a file over any file of the same name; into it when destination is a folder.
    static bool CopyFile(const QString& source, const QString& destination);
    // Copies a folder's whole tree into destination (made when missing), overwriting files.
    static bool CopyFolder(const QString& source, const QString& destination);
    // Deletes a folder with everything in it.
    static bool DeleteFolder(const QString& folder);
    // Index 0 stays "", the files follow from index 1.
    static QStringList ListAllFilesInDirectory(const QString& folder);
    QString GetDefaultDataPath() const;
    // The machine-wide application-data folder in use.
    QString MachineDataFolder() const;

    static constexpr const char* PathsFileName = "Paths.txt";

    // Key number 0..3 of a paths-file line, -1 when the line is to be skipped.
    static int ParsePathLine(const QString& line, QString* value);
    static bool PathsShareBranch(const QString& a, const QString& b);
    static bool FolderExists(const QString& path);

private:
    void SetDataSystemFolder(const QString& fallbackSystemFolder);
    void LoadPaths(const QString& programFolder);
    bool readPathsFile(const QString& file);

    QString machineDataFolder_;
    bool pathsFileRead_ = false;
    QString pathsFileProblem_;
};
