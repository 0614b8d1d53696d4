' The parameters of a property may be optional; the value of Property Let stands behind them all the same.
'> 9 11
Private held As Long

Property Get Level(Optional ByVal plus As Long = 3) As Long
    Level = held + plus
End Property

Property Let Level(Optional ByVal times As Long = 3, ByVal n As Long)
    held = n * times
End Property

Sub main()
    Level = 2
    Debug.Print Level & " ";
    Level(5) = 2
    Debug.Print Level(1) & ""
End Sub
