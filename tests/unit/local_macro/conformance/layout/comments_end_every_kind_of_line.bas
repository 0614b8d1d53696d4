' A comment may follow declarations, labels, block beginnings and block ends.
'> 1 2
Option Explicit ' about the module
Type Thing ' a type
    n As Long ' a field
End Type ' its end
Enum Level ' an enumeration
    low = 2 ' a member
End Enum ' its end

Sub main() ' the start
    Dim t As Thing, i As Long ' variables
Begin1: ' a label
    For i = 1 To 0 ' never
    Next ' the end
    Select Case 1 ' a choice
    Case 1 ' an arm
        t.n = 1 ' a statement
    End Select ' its end
    Debug.Print t.n & " " & low ' the output
End Sub ' the end
