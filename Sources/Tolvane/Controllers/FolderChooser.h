#pragma once

#include <Services/Job.h>
#include <Services/QuickLocation.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// Lets a person choose a folder: a question and the way through the folders to its answer. Works
/// with the bytes of names, so that every folder can be chosen. Folders are listed by workers;
/// until a listing is there, everything stays as it was. For the main thread.
class FolderChooser : public QObject {
    Q_OBJECT
    /// While there is a question.
    PUBLISHED(FolderChooser, bool, isOpen)
    PUBLISHED(FolderChooser, QString, title)
    /// What `accept` would choose: the selected folder, else the one that is listed.
    PUBLISHED(FolderChooser, QString, chosenPath)
    /// Why no folder is listed; empty when there are some.
    PUBLISHED(FolderChooser, QString, emptyText)
    /// Why a typed path leads nowhere; empty when none was tried.
    PUBLISHED(FolderChooser, QString, trouble)
    PUBLISHED(FolderChooser, bool, showsHidden)
    PUBLISHED(FolderChooser, bool, canGoUp)
    /// The folders down to the one that is listed: "name", "pathText".
    Q_PROPERTY(tolvane::ListModel* crumbs READ crumbs CONSTANT)
    /// Folders to begin with: "title", "iconName", "pathText".
    Q_PROPERTY(tolvane::ListModel* places READ places CONSTANT)
    /// What lies in the folder: "name", "pathText", "iconName".
    Q_PROPERTY(tolvane::ListModel* folders READ folders CONSTANT)

  public:
    explicit FolderChooser(const Environment& environment);
    ~FolderChooser() override;

    /// Begins at `start`, or above it where that is gone. A second question replaces the first.
    void ask(const QString& title, const FileURL& start,
             std::function<void(const FileURL&)> onChosen);

    /// Answers with `text`, a path typed by a person: absolute, from the home folder ("~") or from
    /// the folder that is listed. The text as it was shown stands for exactly what it showed.
    Q_INVOKABLE void accept(const QString& text);
    Q_INVOKABLE void reject();

    /// Lists the folder that `text` leads to.
    Q_INVOKABLE void goTo(const QString& text);
    Q_INVOKABLE void goUp();
    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void openPlace(int row);
    Q_INVOKABLE void openCrumb(int row);
    /// Of a row that is not there: none.
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void setShowsHidden(bool showsHidden);
    /// The row, from `row` on and round, whose name begins with `text`; -1 when none does.
    Q_INVOKABLE int rowBeginningWith(const QString& text, int row) const;

    ListModel* crumbs() { return &crumbs_; }
    ListModel* places() { return &places_; }
    ListModel* folders() { return &folders_; }

  Q_SIGNALS:
    /// Another list is shown, in which this row is to be selected; -1: none.
    void listed(int row);

  private:
    struct Nothing {};
    struct Place {
        QString title;
        QString iconName;
        FileURL url;
    };
    struct SubFolder {
        FileURL url;
        bool isLink = false;
    };
    struct Listing {
        FileURL url;
        std::vector<SubFolder> folders;
        std::optional<SystemError> error;
    };
    /// What a listing is asked for.
    enum class Purpose { show, showParent, showTyped, choose };
    enum class Missing { isAnError, givesWayToItsParent };

    static Listing list(const FileManager& files, FileURL url, Missing missing,
                        const std::function<bool()>& isCancelled);
    void start(const FileURL& url, Purpose purpose, Missing missing = Missing::isAnError);
    void apply(Listing listing);
    void show(Listing listing);
    void showRows();
    int rowOf(const FileURL& url) const;
    void answer(const FileURL& url);
    void publishChosen();
    std::vector<Place> existingPlaces() const;
    /// Absent when the text is empty.
    std::optional<FileURL> place(const QString& text) const;

    const Environment& environment_;
    RecordModel<FileURL> crumbs_;
    RecordModel<Place> places_;
    RecordModel<SubFolder> folders_;
    std::function<void(const FileURL&)> onChosen_;
    /// The folder on screen; hidden ones among those in it have no row.
    Listing shown_;
    FileURL chosen_;
    Purpose purpose_ = Purpose::show;
    Job<Nothing, Listing> listing_;
};

}
