#pragma once

#include "uZtException.h"
#include "uZtExport.h"

#include <QString>

#include <deque>
#include <memory>

class QObject;
struct QMetaObject;

/// How a parameter is passed. `ptVar` also stands for a parameter passed by value; `ptNone` is
/// never given.
enum class TZtParamType : quint8 { ptVar, ptOut, ptConst, ptNone };

/// What an event's handler is.
enum class TMethodKind : quint8 {
    mkProcedure,
    mkFunction,
    mkConstructor,
    mkDestructor,
    mkClassProcedure,
    mkClassFunction
};

/// A parameter of an event.
class TZtMethodParam {
public:
    /// The name of the type, as the event's signature spells it; empty for none.
    const QString &GetParamVarType() const { return ParamVarType; }
    void SetParamVarType(const QString &Value) { ParamVarType = Value; }
    /// The parameter's name, as the signature spells it.
    const QString &GetName() const { return Name; }
    void SetName(const QString &Value) { Name = Value; }
    TZtParamType GetParamType() const { return ParamType; } ///< how it is passed
    void SetParamType(TZtParamType Value) { ParamType = Value; }

private:
    QString ParamVarType;
    QString Name;
    TZtParamType ParamType = TZtParamType::ptVar;
};

/// The signature of an event. It owns its parameters.
class ZT_PARSERS_EXPORT TZtMethodDescription {
public:
    /// Appends a parameter, which stays where it is until the description goes.
    TZtMethodParam *AddParam() { return &FParams.emplace_back(); }
    /// The parameter at the 0-based `Index`. Raises `EListError` outside the list.
    const TZtMethodParam *GetParams(int Index) const;
    TZtMethodParam *GetParams(int Index);
    /// How many parameters there are, whatever `SetParamCount` was told.
    int GetParamCount() const { return int(FParams.size()); }
    /// Stored and read by nothing.
    void SetParamCount(int Value) { ParamCount = Value; }

    /// The name of the object whose event it is.
    const QString &GetName() const { return Name; }
    void SetName(const QString &Value) { Name = Value; }
    /// The event's name.
    const QString &GetProcName() const { return ProcName; }
    void SetProcName(const QString &Value) { ProcName = Value; }
    /// The name of a function's result type; empty for a procedure.
    const QString &GetResultType() const { return ResultType; }
    void SetResultType(const QString &Value) { ResultType = Value; }
    TMethodKind GetProcType() const { return ProcType; } ///< procedure or function
    void SetProcType(TMethodKind Value) { ProcType = Value; }

private:
    int ParamCount = 0;
    QString Name;
    QString ProcName;
    QString ResultType;
    TMethodKind ProcType = TMethodKind::mkProcedure;
    std::deque<TZtMethodParam> FParams;
};

/// A signature's text that cannot be read.
class ZT_PARSERS_EXPORT EZtEventSignature : public EZtException {
public:
    /// `APosition` is where the text goes wrong, counted as `GetPosition` does.
    EZtEventSignature(const QString &AMessage, int APosition)
        : EZtException(AMessage), FPosition(APosition)
    {
    }
    /// The 1-based UTF-16 unit of the text at which it goes wrong; one past the last at its end.
    int GetPosition() const { return FPosition; }

private:
    int FPosition;
};

/// Tells what an event of `AClass` and its descendants looks like. Registering an event once more
/// replaces it. Names are compared without regard to case.
///
/// `ASignature` reads "procedure(Sender: TObject; var Key: Word; const A, B: string) of object" or
/// "function(Sender: TObject): Boolean". The parameter list and "of object" may be left out, and
/// so may the type of a parameter that is marked var, const or out. "array of T" is a type as well,
/// known by its elements' type T. Raises `EZtEventSignature` for any other text, and `EZtException`
/// without a class or an event name.
ZT_PARSERS_EXPORT void ZtRegisterEvent(const QMetaObject *AClass, const QString &AEventName,
                                       const QString &ASignature);
/// The same with the signature field by field; `ProcName` is the event's name. `ResultType` counts
/// for functions and class functions alone.
ZT_PARSERS_EXPORT void ZtRegisterEvent(const QMetaObject *AClass,
                                       const TZtMethodDescription &AEvent);

/// A new description of an event of `AObject`, or none when there is no object or no such event.
///
/// Looked up are the events registered for the object's class, then those for its ancestors, then
/// the signals of the class, which need no registration. A signal tells its parameters' names
/// ("Arg1" and so on for one without) and types, but not whether one is a constant reference: that
/// reads as passed by value. `AEventName` is taken with the blanks around it, so one that has any
/// is not found.
ZT_PARSERS_EXPORT std::unique_ptr<TZtMethodDescription>
GetMethodDescription(QObject *AObject, const QString &AEventName);
