// Saving and restoring by the real file dialog.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QUrl>

#include "capture/form2.h"
#include "final/form6.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

class FileDialogTest : public WindowTest {
protected:
    std::string Path(std::string_view name) { return folder.filePath(ToQt(name)).toStdString(); }
    bool Exists(std::string_view name) { return QFile::exists(folder.filePath(ToQt(name))); }
    QByteArray Bytes(std::string_view name) {
        QFile file(folder.filePath(ToQt(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }
    void Write(std::string_view name, const QByteArray& bytes) {
        QFile file(folder.filePath(ToQt(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(bytes);
    }

    /// Saves under a name that doesn't exist yet.
    void SaveNew(std::string_view name) {
        robot.ExpectFileDialog(Path(name));
        robot.ExpectPrompt("no existe", QMessageBox::Yes);
        robot.Choose("guardararchivo");
    }

    QTemporaryDir folder;
};

class SavingTest : public FileDialogTest {
protected:
    SavingTest() {
        record.DatosEmpresa(1) = "Acme";
        Open(ScreenId::Form6);
    }
};

TEST_F(SavingTest, ANameWithoutAPointGetsTheDefaultExtension) {
    SaveNew("plan");
    EXPECT_TRUE(Exists("plan.doc"));
    EXPECT_FALSE(Exists("plan"));
    EXPECT_EQ(Bytes("plan.doc").count("\r\n"), 1524);
    EXPECT_TRUE(Bytes("plan.doc").startsWith("\"Acme\"\r\n"));
    EXPECT_EQ(Current<Form6>().CommonDialog1.FileName, Path("plan.doc"));
}

TEST_F(SavingTest, ANameWithAPointKeepsItsEnd) {
    SaveNew("plan.v2");
    EXPECT_TRUE(Exists("plan.v2"));
    EXPECT_FALSE(Exists("plan.v2.doc"));
}

TEST_F(SavingTest, AFolderThatDoesNotExistIsAskedAboutByItsName) {
    robot.ExpectFileDialog(Path("nueva") + "/");
    robot.ExpectPrompt("nueva no existe.", QMessageBox::No);
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
}

TEST_F(SavingTest, OfANameWithQuotesWhatStandsBetweenTheFirstTwoCounts) {
    robot.ExpectFileDialog("plan \"" + Path("interior") + "\" resto");
    robot.ExpectPrompt("interior.doc no existe.", QMessageBox::Yes);
    robot.Choose("guardararchivo");
    EXPECT_TRUE(Exists("interior.doc"));
}

TEST_F(SavingTest, ANameWithAccentsAndBlanksIsWrittenAndReadAgain) {
    SaveNew("Evaluación de señales, año 2");
    ASSERT_TRUE(Exists("Evaluación de señales, año 2.doc"));
    record = {};
    Open(ScreenId::Form2);
    robot.ExpectFileDialog(Path("Evaluación de señales, año 2"));
    robot.Choose("recuperardatos");
    EXPECT_EQ(record.DatosEmpresa(1), "Acme");
}

TEST_F(SavingTest, APointInTheFolderIsNoneInTheName) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("carpeta.punto")));
    SaveNew("carpeta.punto/plan");
    EXPECT_TRUE(Exists("carpeta.punto/plan.doc"));
}

TEST_F(SavingTest, ItAsksInSpanishBeforeItReplacesAFile) {
    Write("plan.doc", "antes");
    std::string question;
    std::string preset;
    robot.on_modal = [&](QDialog& modal) {
        if (const auto* const box = qobject_cast<QMessageBox*>(&modal)) {
            question = box->text().toStdString();
            preset = box->defaultButton()->text().remove(QLatin1Char('&')).toStdString();
        }
    };
    robot.ExpectFileDialog(Path("plan"));
    robot.ExpectPrompt("ya existe", QMessageBox::Yes);
    robot.Choose("guardararchivo");
    EXPECT_THAT(question, HasSubstr("plan.doc"));
    EXPECT_THAT(question, HasSubstr("¿"));
    EXPECT_EQ(preset, "No");
    EXPECT_EQ(Bytes("plan.doc").count("\r\n"), 1524);
}

TEST_F(SavingTest, ANoToTheReplacementGoesBackToTheDialog) {
    Write("plan.doc", "antes");
    robot.ExpectFileDialog(Path("plan"));
    robot.ExpectPrompt("ya existe", QMessageBox::No);
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_EQ(Bytes("plan.doc"), "antes");
    EXPECT_EQ(Current<Form6>().CommonDialog1.FileName, "");
}

TEST_F(SavingTest, ItAsksInSpanishBeforeItCreatesAFile) {
    std::string question;
    std::string preset;
    std::vector<std::string> captions;
    robot.on_modal = [&](QDialog& modal) {
        const auto* const box = qobject_cast<QMessageBox*>(&modal);
        if (box == nullptr) return;
        question = box->text().toStdString();
        for (const QAbstractButton* const button : box->buttons()) {
            captions.push_back(button->text().remove(QLatin1Char('&')).toStdString());
        }
        preset = box->defaultButton()->text().remove(QLatin1Char('&')).toStdString();
    };
    SaveNew("plan");
    EXPECT_EQ(question, "plan.doc no existe.\n¿Desea crearlo?");
    EXPECT_THAT(captions, ::testing::UnorderedElementsAre("Sí", "No"));
    EXPECT_EQ(preset, "Sí");
}

TEST_F(SavingTest, ANoToTheCreationGoesBackToTheDialogAndCreatesNothing) {
    robot.ExpectFileDialog(Path("plan"));
    robot.ExpectPrompt("no existe", QMessageBox::No);
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_FALSE(Exists("plan.doc"));
}

TEST_F(SavingTest, ACancelAtFirstWritesNothing) {
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_THAT(QDir(folder.path()).entryList(QDir::Files), ::testing::SizeIs(0));
    EXPECT_EQ(Current<Form6>().CommonDialog1.FileName, "");
}

TEST_F(SavingTest, ACancelAfterANameWritesThatFileAgain) {
    SaveNew("plan");
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("plan.doc"))));
    record.DatosEmpresa(1) = "Otra";
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_TRUE(Bytes("plan.doc").startsWith("\"Otra\"\r\n"));
}

TEST_F(SavingTest, TheDialogShowsTheLastNameWhileTheScreenLives) {
    SaveNew("plan");
    std::string shown;
    robot.on_modal = [&](QDialog& modal) {
        const auto* const edit = modal.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (edit != nullptr) shown = edit->text().toStdString();
    };
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_EQ(shown, "plan.doc");

    Open(ScreenId::Form5);
    Open(ScreenId::Form6);
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_EQ(shown, "");
    EXPECT_EQ(Current<Form6>().CommonDialog1.FileName, "");
}

TEST_F(SavingTest, AFolderThatTakesNoFileIsPassedOverInSilence) {
    robot.ExpectFileDialog(Path("ninguna/plan"));
    robot.ExpectPrompt("no existe", QMessageBox::Yes);
    robot.on_modal = [&, dialogs = 0](QDialog& modal) mutable {
        // The toolkit may say that the folder isn't there: then the dialog stays open.
        if (qobject_cast<QFileDialog*>(&modal) != nullptr && ++dialogs == 2) {
            robot.ExpectFileDialog(std::nullopt);
        }
    };
    robot.Choose("guardararchivo");
    EXPECT_EQ(robot.ScreenName(), "Form6");
}

class RestoringTest : public FileDialogTest {
protected:
    RestoringTest() { Open(ScreenId::Form2); }
};

TEST_F(RestoringTest, ItReadsWhatWasSavedAndAsksNothing) {
    record.DatosEmpresa(1) = "Acme, S.A.";
    record.DatosEmpresa(6) = "Móstoles";
    record.NumJornadas = 3;
    Open(ScreenId::Form6);
    SaveNew("plan");

    record = {};
    Open(ScreenId::Form2);
    robot.ExpectFileDialog(Path("plan"));  // "doc" is added here, too
    robot.Choose("recuperardatos");
    EXPECT_EQ(robot.Text("Text1(1)"), "Acme, S.A.");
    EXPECT_EQ(robot.Text("Text1(6)"), "Móstoles");
    EXPECT_EQ(record.NumJornadas, 3);
}

TEST_F(RestoringTest, ANameThatDoesNotExistIsTakenAndTheBoxesAreOverwritten) {
    robot.Type("Text1(4)", "Calle Mayor");
    robot.ExpectFileDialog(Path("ninguno"));
    robot.Choose("recuperardatos");
    EXPECT_EQ(Current<Form2>().CommonDialog1.FileName, Path("ninguno.doc"));
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(robot.Text(Indexed("Text1", i)), "") << i;
    EXPECT_FALSE(Exists("ninguno.doc"));
}

TEST_F(RestoringTest, ACancelAtFirstWipesTheBoxesAndTheNameIsThenMissing) {
    robot.Type("Text1(4)", "Calle Mayor");
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(robot.Text(Indexed("Text1", i)), "") << i;
    robot.ExpectBox({.text = messages::kNoName});
    robot.Choose("continuar", "calculos");
}

TEST_F(RestoringTest, ACancelAfterANameReadsThatFileAgain) {
    Write("a.doc", "\"Uno\"\r\n");
    robot.ExpectFileDialog(Path("a.doc"));
    robot.Choose("recuperardatos");
    EXPECT_EQ(robot.Text("Text1(1)"), "Uno");
    Write("a.doc", "\"Dos\"\r\n");
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
    EXPECT_EQ(robot.Text("Text1(1)"), "Dos");
}

TEST_F(RestoringTest, TheListOfFilesHasTheirNamesSizesAndDates) {
    std::vector<std::string> heads;
    robot.on_modal = [&](QDialog& modal) {
        const auto& columns = *modal.findChild<QTreeView*>()->header();
        for (int i = 0; i < columns.count(); ++i) {
            if (columns.isSectionHidden(i)) continue;
            heads.push_back(
                columns.model()->headerData(i, Qt::Horizontal).toString().toStdString());
        }
    };
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
    EXPECT_THAT(heads, ElementsAre("Nombre", "Tamaño", "Última modificación"));
}

/// What a dialog shows where it starts.
struct Start {
    std::string folder;
    std::vector<std::string> at_the_side;
    std::string way_up;
};

class StartingFolderTest : public RestoringTest {
protected:
    /// The names of the folders at the side, and where the dialog stands.
    Start Opened() {
        Start start;
        robot.on_modal = [&](QDialog& modal) {
            const auto& dialog = dynamic_cast<QFileDialog&>(modal);
            start.folder = dialog.directory().path().toStdString();
            const auto& side = *modal.findChild<QAbstractItemView*>(QStringLiteral("sidebar"));
            for (int row = 0; row < side.model()->rowCount(); ++row) {
                const QUrl url = side.model()->index(row, 0).data(Qt::UserRole + 1).toUrl();
                start.at_the_side.push_back(url.toLocalFile().toStdString());
            }
            start.way_up = modal.findChild<QWidget*>(QStringLiteral("toParentButton"))
                               ->toolTip()
                               .toStdString();
        };
        robot.ExpectFileDialog(std::nullopt);
        robot.Choose("recuperardatos");
        return start;
    }

    const QDir home{QDir::homePath()};
    /// Those of the tree that the tests were built in.
    const std::string examples = EXAMPLES;
};

TEST_F(StartingFolderTest, ItIsHomeWhereThereAreNoDocuments) {
    const Start start = Opened();
    EXPECT_EQ(start.folder, home.path().toStdString());
    EXPECT_THAT(start.at_the_side, ::testing::ElementsAre(home.path().toStdString(), examples));
    EXPECT_EQ(start.way_up, "Ir al directorio superior");
}

TEST_F(StartingFolderTest, ItIsDocumentsWhereThereAreSome) {
    ASSERT_TRUE(home.mkdir(QStringLiteral("Documents")));  // its name on a desktop that names none
    const std::string documents = home.filePath(QStringLiteral("Documents")).toStdString();
    const Start start = Opened();
    EXPECT_EQ(start.folder, documents);
    EXPECT_THAT(start.at_the_side,
                ::testing::ElementsAre(home.path().toStdString(), documents, examples));
    EXPECT_TRUE(home.rmdir(QStringLiteral("Documents")));
}

TEST_F(RestoringTest, TheDialogIsTheToolkitsOwnInSpanish) {
    std::string accept;
    std::string cancel;
    bool native = true;
    robot.on_modal = [&](QDialog& modal) {
        const auto& dialog = dynamic_cast<QFileDialog&>(modal);
        native = !dialog.testOption(QFileDialog::DontUseNativeDialog);
        accept = dialog.labelText(QFileDialog::Accept).remove(QLatin1Char('&')).toStdString();
        for (const QAbstractButton* const button : modal.findChildren<QAbstractButton*>()) {
            const std::string caption = button->text().remove(QLatin1Char('&')).toStdString();
            if (caption == "Cancelar") cancel = caption;
        }
    };
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
    EXPECT_FALSE(native);
    EXPECT_EQ(accept, "Guardar");
    EXPECT_EQ(cancel, "Cancelar");
}

TEST_F(RestoringTest, FilesOfAnyEndingAreListed) {
    Write("plan.doc", "");
    Write("plan.txt", "");
    Write("plan", "");
    Write("a.doc", "");
    robot.ExpectFileDialog(Path("a.doc"));
    robot.Choose("recuperardatos");  // the next dialog opens where this one was
    std::vector<std::string> listed;
    robot.on_modal = [&](QDialog& modal) {
        const auto& list = *modal.findChild<QListView*>(QStringLiteral("listView"));
        EXPECT_TRUE(QTest::qWaitFor([&] {
            listed.clear();
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
                const QModelIndex file = list.model()->index(row, 0, list.rootIndex());
                listed.push_back(file.data().toString().toStdString());
            }
            return listed.size() == 4;
        }));
    };
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
    EXPECT_THAT(listed, ::testing::UnorderedElementsAre("a.doc", "plan", "plan.doc", "plan.txt"));
}

TEST_F(RestoringTest, NoFileIsLeftInTheUsersFolders) {
    ASSERT_THAT(FilesInHome(), IsEmpty());
    Write("a.doc", "\"Uno\"\r\n");
    robot.ExpectFileDialog(Path("a.doc"));
    robot.Choose("recuperardatos");
    Open(ScreenId::Form6);
    SaveNew("b");
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_THAT(FilesInHome(), IsEmpty());
}

}  // namespace
}  // namespace velmora::test
