Option Explicit

Dim tvApp As Object

Public Sub main()
  Set tvApp = Application.Torvane
End Sub
